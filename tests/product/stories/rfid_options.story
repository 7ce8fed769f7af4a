# How a printer places and retries its RFID tags. This one can be told where the tag is and how often
# it tries.
install Tags --model "Valdrick R4 RFID"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Tags\Settings" "Measurement System" 3 01000000
sheet Tags --device
  page "Tools"
  menu 613 28717
  state
  = {"window": "dialog", "title": "RFID Options", "focus": 701}
  = 701 {"text": "0.00 in", "enabled": true}
  = 711 {"enabled": true}
  = 702 {"text": "5", "enabled": true}
  = 712 {"enabled": true}
  = 703 {"text": "0", "enabled": false}
  = 713 {"enabled": false}
  = 704 {"items": ["Print the next label", "Pause", "Stop with an error"], "selection": [0], "enabled": false}
  = 714 {"enabled": false}
  type 702 "3"
  cancel
  menu 613 28717
  state
  = 702 {"text": "5"}
  type 702 "25"
  state
  = 702 {"text": "25"}
  leave
  state
  = 702 {"text": "10"}
  type 702 "-1"
  leave
  state
  = 702 {"text": "0"}
  type 702 "25"
  type 701 "999 in"
  leave
  state
  = 701 {"text": "39.02 in"}
  type 701 "1 in"
  help
  ok
  menu 613 28717
  state
  = 701 {"text": "1.00 in"}
  = 702 {"text": "10"}
= {"/acts/0/parameters": "/base/RFID_Font_Edit.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Tags\PrinterDriverData\Settings\RFID"
= {"/values/Transponder Offset/data": "38630000", "/values/Retries Per Label/data": "0a000000", "/values/Maximum Invalid Labels/data": "00000000", "/values/Failure Action/data": "01000000"}

# What is stored is shown even where the printer cannot be told.
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Tags\PrinterDriverData\Settings\RFID" "Failure Action" 4 03000000
sheet Tags --device
  page "Tools"
  menu 613 28717
  state
  = 704 {"selection": [2], "enabled": false}
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Tags\PrinterDriverData\Settings\RFID"
= {"/values/Failure Action/data": "03000000"}
