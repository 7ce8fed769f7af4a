# Logging needs a status monitor that serves the port. The hidden sheet for developers keeps what
# they set until it is applied, and runs its tests.
install Dock3 --model "Valdrick X4 300 dpi"
sheet Dock3 --device
  page "Tools"
  click 617
  state none
  = {"window": "message", "title": "Logging", "text": "~switched off", "buttons": ["OK"]}
  answer OK

  page "About"
  click 111 CTRL+ALT+SHIFT
  state fonts
  = {"sheet": "Development Options", "title": "Control", "page": 0, "apply": false}
  menu 692 150
  state changed
  = {"apply": true}
  click 692
  state base
  = {"window": "menu", "items": {"0": {"checked": false}, "3": {"id": 150, "checked": true}}}
  key ESC
  menu 692 150
  state unchanged
  = {"apply": false}
  menu 692 149
  menu 692 148
  menu 692 151
  click 692
  state some
  = {"items": {"0": {"id": 152, "checked": false}, "1": {"id": 149, "checked": true}}}
  = {"items": {"4": {"id": 148, "checked": true}, "5": {"id": 147, "checked": false}}}
  = {"items": {"6": {"id": 151, "checked": true}}}
  key ESC
  page "Output"
  state output
  = 610 {"text": "127.0.0.1"}
  = 611 {"text": "4444"}
  = 623 {"text": "0"}
  = 613 {"checked": 0}
  type 611 "5000"
  check 612 on
  check 624 on
  check 625 on
  check 627 on
  check 628 on
  check 629 on
  check 630 on
  check 631 on
  page "Monitor"
  check 651 on
  check 646 on
  check 647 on
  cancel
  cancel

# Nothing is stored by Cancel.
registry dump "HKLM\SOFTWARE\Valdrick\Drivers\Global Settings\Development"
! 1 "Development"
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Development"
! 1 "Development"

sheet Dock3 --device
  page "About"
  click 111 CTRL+ALT+SHIFT
  menu 692 152
  menu 692 147
  page "Output"
  type 610 "1234567890123456789012345678901234567890123456789012345678901234567890123456789ABC"
  type 611 "5000"
  check 613 on
  check 625 on
  check 626 on
  check 629 on
  check 633 on
  type 623 "12"
  page "Monitor"
  check 652 on
  apply
  state applied
  = {"apply": false}
  ok
  # What is stored is shown.
  click 111 CTRL+ALT+SHIFT
  click 692
  state again
  = {"items": {"0": {"checked": true}, "1": {"checked": false}, "5": {"checked": true}}}
  key ESC
  page "Output"
  state output
  = 610 {"text": "1234567890123456789012345678901234567890123456789012345678901234567890123456789"}
  = 611 {"text": "5000"}
  = 623 {"text": "12"}
  = 612 {"checked": 0}
  = 613 {"checked": 1}
  page "Monitor"
  state monitor
  = 651 {"checked": 0}
  = 652 {"checked": 1}
  cancel
  cancel

registry dump "HKLM\SOFTWARE\Valdrick\Drivers\Global Settings\Development"
= {"/values/TCP Port": {"type": 4, "data": "88130000"}, "/values/TCP IP/type": 1}
= {"/values": {"Monitor Log API Calls": {"data": "00"}, "Monitor Save Write Data": {"data": "01"}}}
= {"/values": {"Monitor Save Read Data": {"data": "00"}}}
= {"/values": {"Monitor Save Status Command": {"type": 3, "data": "00"}}}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData"
= {"/keys/Settings/values/Cache Font Metrics": {"type": 3, "data": "01"}}
= {"/values/Model Synchronization": {"type": 4}}
= {"/keys/Development/values": {"No Condensed/Expanded Fonts": {"type": 3, "data": "01"}}}
= {"/keys/Development/values": {"Enumerate PFM Names": {"data": "00"}}}
= {"/keys/Development/values": {"No Magnified Fonts": {"data": "00"}, "No Base Fonts": {"data": "00"}}}
= {"/keys/Development/values": {"No Bar Code Fonts": {"data": "00"}, "Reuse Device Info": {"data": "00"}}}
= {"/keys/Development/values": {"Log API Entry": {"data": "00"}, "Log API Parameters": {"data": "01"}}}
= {"/keys/Development/values": {"Skip API BitBlit": {"data": "00"}, "Skip API StretchBlit": {"data": "01"}}}
= {"/keys/Development/values": {"Skip API CopyBits": {"data": "01"}, "Skip API FillPath": {"data": "00"}}}
= {"/keys/Development/values": {"Skip API StrokePath": {"data": "00"}, "Skip API TextOut": {"data": "00"}}}
= {"/keys/Development/values": {"Skip API StrokeAndFillPath": {"data": "01"}, "Skip API Output": {"data": "00"}}}
= {"/keys/Development/values": {"API SaveBitmaps": {"data": "01"}, "API Stop": {"type": 4, "data": "0c000000"}}}

# The page for times.
sheet Dock3 --device
  page "About"
  click 111 CTRL+ALT+SHIFT
  page "Performance"
  menu 727 134
  state first
  = {"apply": false}
  = 693 {"text": "~Test 0\t", "readonly": true}
  menu 727 139
  menu 728 142
  menu 728 144
  menu 728 155
  menu 728 156
  state all
  = 693 {"text": "~ ms\r\nTest 5\t"}
  = 693 {"text": "~ ms\r\nConstruct Connection\t"}
  = 693 {"text": "~ ms\r\nDestroy Connection\t"}
  = 693 {"text": "~ ms\r\nPrint Empty Page\t"}
  = 693 {"text": "~ ms\r\nPrint Text\t"}
  menu 668 145
  menu 668 146
  state cleared
  = 693 {"text": ""}
  ok
  ok
