# The page for the label material and for what the printer does after a label.
install Line --model "Valdrick X4 300 dpi"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Line\Settings" "Measurement System" 3 01000000

sheet Line --document --out $DIR/cut
  page "Media"
  state
  = {"apply": false}
  = 1010 {"items": ["As set in the printer", "Direct thermal", "Thermal transfer"], "selection": [0], "enabled": true}
  = 1040 {"items": ["As set in the printer", "Continuous media", "Gap sensor", "Mark sensor"], "selection": [0]}
  = 1045 {"items": ["As set in the printer", "Tear off", "Peel off", "Rewind", "Cut", "Applicator"], "selection": [0]}
  = 1075 {"items": ["Never", "After each label", "After the job", "After several labels"], "selection": [0]}
  = 1076 {"text": "Pa&use:"}
  = 1078 {"text": "0", "enabled": false}
  = 1079 {"enabled": false}
  = 1087 {"checked": 0, "enabled": false}
  = 1036 {"items": ["Normal", "Before printing", "After printing", "Off", "By percentage"], "selection": [0], "visible": true}
  = 1032 {"visible": false}
  = 1065 {"visible": false}
  = 1095 {"checked": 0, "enabled": true}
  = 1026 {"text": "", "enabled": false}
  = 1096 {"checked": 0, "enabled": true}
  = 1072 {"text": "", "enabled": false}
  choose 1010 "Thermal transfer"
  choose 1040 "Mark sensor"
  check 1096 on
  type 1072 "1 mm"
  leave
  state
  = {"apply": true}
  = 1072 {"text": "0.04 in", "enabled": true}
  choose 1045 "Cut"
  state
  = 1096 {"checked": 0, "enabled": false}
  = 1072 {"text": "", "enabled": false}
  = 1087 {"enabled": true, "checked": 0}
  = 1076 {"text": "C&ut:"}
  = 1075 {"items": ["After each label", "After the job", "After several labels"], "selection": [0]}
  = 1078 {"text": "1", "enabled": false}
  check 1087 on
  choose 1075 "After several labels"
  state
  = 1078 {"enabled": true}
  = 1079 {"enabled": true}
  type 1078 "7"
  spin 1079 up 2
  state
  = 1078 {"text": "9"}
  type 1078 "70000"
  state
  = 1078 {"text": "70000"}
  leave
  state
  = 1078 {"text": "9999"}
  type 1078 "12"
  ok
document Line --in $DIR/cut
= {"/configuration/media_type": 1, "/configuration/media_tracking": 3, "/configuration/print_mode": 3, "/configuration/cut_variant": 2, "/configuration/stock_count": 12, "/configuration/setting_flags": 1}

# After the job there is nothing to count; after each label it is one.
sheet Line --document --in $DIR/cut --out $DIR/other
  page "Media"
  state
  = 1010 {"selection": [2]}
  = 1040 {"selection": [3]}
  = 1045 {"selection": [4]}
  = 1075 {"selection": [2]}
  = 1078 {"text": "12"}
  = 1087 {"checked": 1}
  choose 1075 "After the job"
  state
  = 1078 {"text": "", "enabled": false}
  choose 1075 "After each label"
  state
  = 1078 {"text": "1", "enabled": false}
  choose 1045 "Rewind"
  state
  = 1076 {"text": "Pa&use:"}
  = 1075 {"items": 4, "selection": [0]}
  = 1087 {"enabled": false}
  = 1096 {"enabled": false}
  choose 1075 "After several labels"
  state
  = 1078 {"text": "1", "enabled": true}
  choose 1075 "After the job"
  state
  = 1078 {"text": "", "enabled": false}
  choose 1075 "After each label"
  state
  = 1078 {"text": "1", "enabled": false}
  help
  ok
= {"/acts/0/parameters": "/zpl/Stock.html"}
document Line --in $DIR/other
= {"/configuration/print_mode": 2, "/configuration/stock_option": 1, "/configuration/stock_count": 1}

# Backfeed in tens; lengths in the user's units.
sheet Line --document --out $DIR/feed
  page "Media"
  choose 1036 "By percentage"
  state
  = 1032 {"visible": true, "text": "0"}
  = 1065 {"visible": true}
  type 1032 "47"
  leave
  state
  = 1032 {"text": "40"}
  type 1032 "-15"
  leave
  state
  = 1032 {"text": "0"}
  type 1032 "250"
  leave
  state
  = 1032 {"text": "100"}
  type 1032 "47"
  check 1095 on
  type 1026 "-2 mm"
  leave
  check 1096 on
  type 1072 "99 in"
  leave
  state
  = 1032 {"text": "40"}
  = 1026 {"text": "-0.08 in"}
  = 1072 {"text": "0.40 in"}
  choose 1045 "Tear off"
  state
  = 1096 {"checked": 1, "enabled": true}
  choose 1036 "After printing"
  state
  = 1032 {"visible": false}
  choose 1036 "By percentage"
  ok
document Line --in $DIR/feed
= {"/configuration/backfeed": 4, "/configuration/backfeed_percentage": 40, "/configuration/print_mode": 0, "/configuration/label_top": -2000, "/configuration/tear_off": 10160, "/configuration/setting_flags": 6}

# Cancelled, nothing is kept; the printing defaults are those of every document.
sheet Line --defaults
  page "Media"
  choose 1045 "Applicator"
  cancel
document Line
= {"/configuration/print_mode": -1}
sheet Line --defaults
  page "Media"
  choose 1045 "Peel off"
  choose 1040 "Gap sensor"
  apply
  choose 1040 "Continuous media"
  cancel
= {"/result": "cancel", "/applied": true}
document Line
= {"/configuration/print_mode": 1, "/configuration/media_tracking": 2}

# Printers that can do less.
install Plain --model "Valdrick P4 PPLZ"
sheet Plain --document
  page "Media"
  state
  = 1040 {"items": ["As set in the printer", "Continuous media", "Gap sensor"]}
  = 1045 {"items": ["As set in the printer", "Tear off", "Cut"]}
  = 1036 {"visible": false}
  = 1142 {"visible": false}
  = 1032 {"visible": false}
  = 1065 {"visible": false}
  cancel
install Ribbon --model "Valdrick C4 Spot Color"
sheet Ribbon --document
  page "Media"
  state
  = 1010 {"items": ["As set in the printer", "Thermal transfer"], "enabled": true}
  = 1045 {"items": ["As set in the printer", "Tear off", "Peel off", "Rewind", "Cut", "Applicator"]}
  = 1036 {"items": ["Normal", "Before printing", "After printing", "By percentage"]}
  = 1096 {"enabled": false}
  = 1072 {"enabled": false}
  cancel
install Desk --model "Valdrick D4 203 dpi"
sheet Desk --document
  page "Media"
  state
  = 1010 {"items": ["As set in the printer", "Direct thermal"]}
  = 1036 {"items": ["Normal", "Before printing", "After printing"]}
  cancel
