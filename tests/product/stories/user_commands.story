# What a document sends beside its pages, and the driver's options for it.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
document Dock3
= same "defaults"

registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings" "Measurement System" 3 01000000
file a.prn
  ^XA^XZ

# Sequences of the escape character are red, at the latest when it is chosen: Wine's control does not
# tell when protected text is typed over.
sheet Dock3
  click 506
  state
  = {"title": "User Commands", "sheet": "Advanced Settings", "apply": false}
  = 493 {"items": ["At the start of the document", "At the start of each page", "At the end of each page", "At the end of the document"], "selection": [0]}
  = 494 {"text": "", "limit": 255, "readonly": false, "colors": []}
  = 622 {"items": ["None", " ^", " ~", " !", " _", " /", " \\"], "selection": [1], "enabled": true}
  = 666 {"enabled": true}
  = 115 {"enabled": true}
  type 494 "^"
  state
  = {"apply": true}
  type 494 ""
  state
  = {"apply": false}
  type 494 "^XA^<ESC>^#1B^?C:\\a.prn"
  choose 622 " ^"
  state
  = 494 {"text": "^XA^<ESC>^#1B^?C:\\a.prn", "colors": [[0, 2, "e00000"], [2, 3, "000000"], [3, 23, "e00000"]]}
  type 494 "a^\n^<E^#\n^b\n~c"
  choose 622 " ^"
  state
  = 494 {"text": "a^\r\n^<E^#\r\n^b\r\n~c", "colors": [[0, 1, "000000"], [1, 2, "e00000"], [2, 3, "000000"], [3, 8, "e00000"], [8, 9, "000000"], [9, 11, "e00000"], [11, 14, "000000"]]}
  choose 622 " ~"
  state
  = 494 {"colors": [[0, 12, "000000"], [12, 14, "e00000"]]}
  choose 622 "None"
  state
  = 494 {"colors": [[0, 14, "000000"]]}
  = 666 {"enabled": false}
  choose 622 " \\"
  state
  = 666 {"enabled": true}
  choose 622 " ^"
  type 494 "ab"
  key LEFT
  menu 666 4927
  state
  = {"focus": 494}
  = 494 {"text": "a^<ESC>b", "caret": [7, 7], "colors": [[0, 1, "000000"], [1, 7, "e00000"], [7, 8, "000000"]]}
  menu 666 4900
  menu 666 4931
  menu 666 4932
  state
  = 494 {"text": "a^<ESC>^<NUL>^<US>^<DEL>b"}
  click 666
  state
  = {"window": "menu", "items": [{"items": 16}, {"items": 16}, {"id": 4932, "text": "DEL"}]}
  key ESC
  choose 493 #1
  state
  = 494 {"text": "", "focus": null}
  click 115
  state
  = {"window": "file", "title": "Printer File", "filters": ["Printer files (*.prn)", "All files (*.*)"]}
  file
  state
  = 494 {"text": ""}
  click 115
  file "$FILES\\a.prn"
  state
  = 494 {"text": "~\\a.prn", "colors": 1}
  choose 493 #0
  state
  = 494 {"text": "a^<ESC>^<NUL>^<US>^<DEL>b", "caret": [0, 0]}
  help
  cancel
  ok
= {"/acts/0/parameters": "/base/Advanced.html"}
document Dock3
= same "defaults"

# OK of the advanced sheet applies; a later Cancel of the document's sheet is then its result.
sheet Dock3 --out $DIR/cancelled
  click 506
  choose 493 "At the end of the document"
  type 494 "last"
  ok
  state
  = {"title": "Page Setup", "apply": true}
  cancel
= {"/result": "cancel"}

# A document's commands come with it. A command is at most 256 bytes long, typed or inserted.
sheet Dock3 --out $DIR/document
  click 506
  type 494 "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxy"
  state
  = 494 {"text": "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"}
  menu 666 4927
  choose 493 #1
  type 494 "^FDone\nline"
  choose 493 #2
  type 494 "three"
  choose 493 #3
  type 494 "one"
  choose 622 " ~"
  apply
  state
  = {"apply": false}
  type 494 "gone"
  cancel
  ok
document Dock3 --in $DIR/document
= {"/configuration/user": ["xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx^", "one", "^FDone\r\nline", "three"]}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/values/Function Character/data": "7e000000"}
document Dock3
= same "defaults"
sheet Dock3 --in $DIR/document
  click 506
  state
  = 494 {"text": "~xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx", "colors": 1}
  = 622 {"selection": [2]}
  choose 493 #1
  state
  = 494 {"text": "^FDone\r\nline"}
  cancel
  cancel

# The driver's options.
sheet Dock3 --out $DIR/options
  click 506
  page "Driver Options"
  state
  = {"title": "Driver Options", "apply": false}
  = 499 {"checked": 0, "enabled": true}
  = 500 {"enabled": false}
  = 501 {"text": "0.25 in", "enabled": false}
  = 315 {"text": "1", "enabled": true}
  = 509 {"checked": 0}
  click 499
  state
  = {"apply": true}
  = 500 {"enabled": true}
  = 501 {"enabled": true}
  type 501 "-3"
  leave
  state
  = 501 {"text": "0.00 in"}
  type 501 "10 mm"
  leave
  state
  = 501 {"text": "0.39 in"}
  type 315 "0"
  leave
  state
  = 315 {"text": "1"}
  spin 315 up 2
  state
  = 315 {"text": "3"}
  help
  ok
  ok
= {"/acts/0/parameters": "/base/Advanced_DriverOptions.html"}
document Dock3 --in $DIR/options
= {"/public/dmCopies": 3, "/configuration/flags": 16, "/configuration/option_length": 10000}

# The option is not for pictures that the printer itself dithers.
document Dock3 --set flags=16 --set dither.algorithm=5 --set dither.flags=0 --out $DIR/device
sheet Dock3 --in $DIR/device
  click 506
  page #1
  state
  = {"apply": false}
  = 499 {"checked": 1, "enabled": false}
  = 500 {"enabled": false}
  = 501 {"enabled": false}
  cancel
  cancel

# A limit of copies that the printer has can be lifted.
install Small --model "Valdrick P4 PPLZ"
upgrade Small
sheet Small --out $DIR/copies
  click 506
  page #1
  type 315 "12000"
  leave
  state
  = 315 {"text": "9999"}
  click 509
  type 315 "40000"
  leave
  state
  = 315 {"text": "32767"}
  type 315 "12000"
  leave
  ok
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Small\PrinterDriverData\Settings"
= {"/values/Disable Copies Limit/data": "01"}
document Small --in $DIR/copies
= {"/public/dmCopies": 12000}
capabilities Small
= {"/results/18": 32767}
