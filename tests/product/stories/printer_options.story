# Darkness and speed, and the dialogs for options of the printer itself.
install Line --model "Valdrick X4 300 dpi"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Line\Settings" "Measurement System" 3 01000000

# Each kind of darkness has a value of its own.
sheet Line --document --out $DIR/dark
  page "Options"
  state
  = {"apply": false}
  = 1201 {"checked": 1}
  = 1202 {"checked": 1, "enabled": false}
  = 1203 {"checked": 0, "enabled": false}
  = 1204 {"range": [-30, 30], "position": 0, "enabled": false}
  = 1205 {"text": "0", "enabled": false, "readonly": true}
  = 1211 {"checked": 1}
  = 1212 {"items": ["2.00 in/s", "3.00 in/s", "4.00 in/s", "5.00 in/s", "6.00 in/s", "8.00 in/s", "10.00 in/s"], "selection": [2], "enabled": false}
  = 1213 {"items": 7, "selection": [2], "enabled": false}
  = 1214 {"items": 7, "selection": [2], "enabled": false}
  = 1221 {"items": ["Standard", "Extended 1", "Extended 2", "Alternative 1", "Alternative 2"], "selection": [0]}
  check 1201 off
  state
  = {"apply": true}
  = 1202 {"enabled": true}
  = 1203 {"enabled": true}
  = 1204 {"enabled": true}
  = 1205 {"enabled": true}
  slide 1204 -7
  state
  = 1205 {"text": "-7"}
  key PAGEUP
  key LEFT
  state
  = 1205 {"text": "-13"}
  click 1203
  state
  = 1203 {"checked": 1}
  = 1202 {"checked": 0}
  = 1204 {"range": [0, 30], "position": 12}
  = 1205 {"text": "12"}
  slide 1204 30
  click 1202
  state
  = 1204 {"range": [-30, 30], "position": -13}
  click 1203
  check 1211 off
  state
  = 1204 {"range": [0, 30], "position": 30}
  = 1212 {"enabled": true}
  = 1213 {"enabled": true}
  = 1214 {"enabled": true}
  choose 1212 "6.00 in/s"
  choose 1213 "8.00 in/s"
  choose 1214 "2.00 in/s"
  choose 1221 "Alternative 1"
  help
  ok
= {"/acts/0/parameters": "/zpl/Options.html"}
document Line --in $DIR/dark
= {"/configuration/relative_darkness": -13, "/configuration/absolute_darkness": 30, "/configuration/setting_flags": 56, "/configuration/print_speed": 6, "/configuration/slew_speed": 8, "/configuration/backfeed_speed": 2, "/configuration/option": 1}
sheet Line --document --in $DIR/dark --out $DIR/modes
  page "Options"
  state
  = {"apply": false}
  = 1201 {"checked": 0}
  = 1203 {"checked": 1}
  = 1204 {"position": 30}
  = 1212 {"selection": [4]}
  = 1213 {"selection": [5]}
  = 1214 {"selection": [0]}
  = 1221 {"text": "Alternative 1", "selection": [3]}
  choose 1221 "Extended 2"
  check 1201 on
  state
  = 1203 {"enabled": false, "checked": 1}
  = 1204 {"enabled": false}
  ok
document Line --in $DIR/modes
= {"/configuration/option": 4, "/configuration/setting_flags": 40}

# Numbers that the printer does not know are brought to those that it does.
document Line --set option=9 --set print_speed=7 --set slew_speed=99 --set absolute_darkness=99 --out $DIR/odd
sheet Line --document --in $DIR/odd
  page "Options"
  state
  = 1221 {"selection": [0]}
  = 1212 {"selection": []}
  = 1213 {"selection": [6]}
  cancel

# Printers with fewer choices. Cancel keeps nothing.
install Plain --model "Valdrick P4 PPLZ"
sheet Plain --defaults
  page "Options"
  check 1201 off
  check 1211 off
  state
  = 1202 {"enabled": false}
  = 1203 {"enabled": false}
  = 1204 {"enabled": true}
  = 1212 {"enabled": true, "items": 4}
  = 1213 {"enabled": false}
  = 1214 {"enabled": false}
  = 1221 {"items": ["Standard", "Alternative 1", "Alternative 2"]}
  slide 1204 5
  cancel
document Plain
= {"/configuration/setting_flags": 0, "/configuration/relative_darkness": 0}
install Desk --model "Valdrick D4 203 dpi"
sheet Desk --defaults
  page "Options"
  check 1211 off
  state
  = 1213 {"enabled": true}
  = 1214 {"enabled": false}
  ok
document Desk
= {"/configuration/setting_flags": 8}

# What the printer does after an error and with its media. Nothing is sent until the next
# configuration is.
sheet Line --device
  page "Tools"
  menu 613 28711
  state
  = {"window": "dialog", "title": "Printer Options"}
  = 1231 {"checked": 1}
  = 1232 {"checked": 1}
  = 1233 {"items": ["Feed to the next label", "No feed", "Measure label length", "Calibrate"], "selection": [1], "enabled": false}
  = 1234 {"items": 4, "selection": [1], "enabled": false}
  check 1231 off
  check 1232 off
  state
  = 1233 {"enabled": true}
  = 1234 {"enabled": true}
  choose 1233 "Calibrate"
  choose 1234 #0
  cancel
  menu 613 28711
  state
  = 1231 {"checked": 1}
  = 1232 {"checked": 1}
  check 1231 off
  check 1232 off
  choose 1233 "Measure label length"
  choose 1234 "Feed to the next label"
  help
  ok
  menu 613 28711
  state
  = 1231 {"checked": 0}
  = 1232 {"checked": 0}
  = 1233 {"selection": [2]}
  = 1234 {"selection": [0]}
= {"/acts/0/parameters": "/zpl/PrinterOptions.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Line\PrinterDriverData\Settings"
= {"/values/Reprint After Error/data": "00", "/values/Media Feed/data": "01", "/values/Media Feed (Power Up)/data": "02000000", "/values/Media Feed (Head Close)/data": "00000000"}

# The printer's memories.
sheet Line --device
  page "Tools"
  menu 613 28704
  state
  = {"title": "Memory"}
  = 1251 {"items": ["E: Flash memory", "B: Memory card", "A: Second memory card", "R: Working memory"], "selection": [0]}
  click 1253
  choose 1251 #1
  click 1252
  click 1254
  click 1255
  help
  ok
  menu 613 28704
  state
  = 1251 {"selection": [1]}
  choose 1251 #0
  cancel
= {"/acts/0/parameters": "/zpl/FormatMemory.html"}
registry dump "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Line\Settings"
= {"/values/Memory Type/data": "42"}
