# Presets are made from others, renamed, described, updated, deleted and chosen.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
# Wine gives a new printer settings of its own.
sheet Dock3 --defaults
  choose 514 "Default Settings"
  ok

sheet Dock3 --defaults
  click 356
  click 513
  state
  = {"window": "dialog", "title": "Presets", "focus": 589}
  = 589 {"items": ["Current Settings", "Default Settings", "Draft", "High quality", "Wristband"], "selection": [0]}
  = 593 {"text": "Current Settings", "enabled": false, "limit": 64}
  = 595 {"text": "The settings that the document had when this window opened.", "enabled": false, "limit": 4096}
  = 590 {"enabled": true}
  = 591 {"enabled": false}
  = 592 {"enabled": false}
  = 594 {"enabled": false}
  = 599 {"enabled": false}
  help
  # A stored one can be edited; several, or a built-in one among them, not.
  select 589 "Draft"
  state
  = 593 {"text": "Draft", "enabled": true}
  = 595 {"text": "Lighter print, pictures in coarse dots", "enabled": true}
  = 590 {"enabled": true}
  = 591 {"enabled": true}
  = 592 {"enabled": true}
  = 594 {"enabled": true}
  = 599 {"enabled": true}
  select 589 "Draft" "High quality"
  state
  = 593 {"text": "", "enabled": false}
  = 595 {"text": "", "enabled": false}
  = 590 {"enabled": false}
  = 591 {"enabled": true}
  = 599 {"enabled": false}
  select 589 #0 "Draft"
  state
  = 591 {"enabled": false}
  select 589
  state
  = 590 {"enabled": false}
  = 591 {"enabled": false}
  # A copy of a built-in one is a new preset.
  select 589 "Default Settings"
  click 590
  state
  = 589 {"items": ["Current Settings", "Default Settings", "Draft", "High quality", "New Preset", "Wristband"], "selection": [4]}
  = 593 {"text": "New Preset", "enabled": true}
  = 595 {"text": "", "enabled": true}
  = 591 {"enabled": true}
  # The list follows while a name is typed; the field is left alone.
  type 593 "  Labels "
  state
  = 593 {"text": "  Labels "}
  = 589 {"items": ["Current Settings", "Default Settings", "Draft", "High quality", "Labels", "Wristband"], "selection": [4]}
  type 593 "Zone"
  state
  = 589 {"items": {"4": "Wristband", "5": "Zone"}, "selection": [5]}
  type 593 ""
  state
  = 589 {"items": {"4": "Wristband", "5": ""}, "selection": [5]}
  type 593 "Labels"
  type 595 "For parcels"
  # A copy of a stored one has its description and another name.
  click 590
  state
  = 593 {"text": "Labels 2"}
  = 595 {"text": "For parcels"}
  = 589 {"selection": [5], "items": 7}
  # Two of one name: another one is proposed.
  type 593 "Labels"
  ok
  state
  = {"window": "message", "title": "Name of the Preset", "buttons": ["Yes", "No"]}
  = {"text": "There are two presets with the name \"Labels\".\n\nRename one of them to \"Labels 2\"?"}
  answer No
  state
  = {"window": "dialog", "focus": 593}
  = 593 {"text": "Labels", "enabled": true}
  = 589 {"selection": [5], "items": {"4": "Labels", "5": "Labels"}}
  ok
  answer Yes
  state
  = {"title": "Page Setup", "apply": true}
  = 514 {"text": "Labels 2", "items": 7}
  = 355 {"checked": 1}
  # What was edited before a preset was chosen comes back.
  choose 514 "Current Settings"
  state
  = 356 {"checked": 1}
  = 514 {"text": "Current Settings"}
  click 513
  state
  = 589 {"selection": [0]}
  select 589 "Labels"
  click 599
  state
  = {"window": "message", "title": "Update Preset", "buttons": ["OK", "Cancel"]}
  = {"text": "Replace the settings of the preset \"Labels\" with the current settings?"}
  answer Cancel
  state
  = 593 {"text": "Labels"}
  click 599
  answer OK
  ok
  state
  = 514 {"text": "Labels"}
  = 356 {"checked": 1}
  ok
= {"/result": "ok", "/acts/0/parameters": "/base/Presets.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Presets"
= {"/values/Total/data": "05000000"}
= {"/values/Preset 03: Name/data": "4c006100620065006c0073000000"}
= {"/values/Preset 03: Description/data": "46006f0072002000700061007200630065006c0073000000"}
= {"/values/Preset 04: Name/data": "4c006100620065006c007300200032000000"}
document Dock3 --preset Labels
= {"/public/dmOrientation": 2}
document Dock3 --preset "Labels 2"
= {"/public/dmOrientation": 1}
document Dock3
= {"/public/dmOrientation": 2}

# A cancelled dialog leaves nothing.
sheet Dock3 --defaults
  state
  = 514 {"text": "Labels"}
  click 513
  state
  = 589 {"selection": [4]}
  click 591
  state
  = 589 {"items": 6, "selection": [0]}
  = 593 {"text": "Current Settings", "enabled": false}
  = 591 {"enabled": false}
  click 590
  type 593 "Passing"
  cancel
  state
  = {"apply": false}
  = 514 {"items": 7, "text": "Labels"}
  # Without a name it is a new preset.
  click 513
  click 590
  type 593 ""
  ok
  state
  = {"apply": true}
  = 514 {"items": 8, "text": "New Preset"}
  = 356 {"checked": 1}
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Presets"
= {"/values/Total/data": "05000000", "/values/Preset 05: Name/data": "~57007200"}

# Deleted ones go with OK of both, and the settings are again those of the beginning.
sheet Dock3 --document
  click 355
  click 513
  select 589 "Labels" "Labels 2"
  click 591
  state
  = 589 {"items": ["Current Settings", "Default Settings", "Draft", "High quality", "Wristband"], "selection": [0]}
  = 593 {"text": "Current Settings", "enabled": false}
  ok
  state
  = 356 {"checked": 1}
  = 514 {"items": 5}
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Presets"
= {"/values/Total/data": "03000000", "/values/Preset 03: Name/data": "~57007200", "/values/Preset 04: Name": null}
document Dock3
= {"/public/dmOrientation": 2}
