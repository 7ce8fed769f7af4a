# What Wine cannot show of user commands: colours while they are typed, and users without rights.
native
install Dock3 --model "Valdrick X4 300 dpi"
sheet Dock3
  click 506
  type 494 "^"
  state
  = 494 {"colors": [[0, 1, "e00000"]]}
  key LEFT
  key DELETE
  type 494 "a^XA\n^#1"
  state
  = 494 {"caret": [8, 8], "colors": [[0, 1, "000000"], [1, 3, "e00000"], [3, 5, "000000"], [5, 8, "e00000"]]}
  key BACKSPACE
  key BACKSPACE
  state
  = 494 {"caret": [6, 6], "colors": [[0, 1, "000000"], [1, 3, "e00000"], [3, 5, "000000"], [5, 6, "e00000"]]}
  cancel
  cancel

# Such a user may give a document commands, but may not change the printer.
--standard-user sheet Dock3 --out $DIR/document
  click 506
  type 494 "^XA"
  state
  = {"apply": true}
  = 622 {"enabled": false}
  = 666 {"enabled": true}
  page #1
  state
  = 499 {"enabled": false}
  = 501 {"enabled": false}
  = 315 {"enabled": false}
  = 509 {"enabled": false}
  ok
  ok
document Dock3 --in $DIR/document
= {"/configuration/user/0": "^XA"}
--standard-user sheet Dock3 --device
  page "Tools"
  state
  = 614 {"enabled": false}
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings" "Local Access Level" 3 00000000
--standard-user sheet Dock3 --device
  page "Tools"
  click 614
  state
  = 681 {"selection": [3], "enabled": false}
  = 682 {"enabled": false}
  = 679 {"enabled": true}
  = 600 {"enabled": true}
