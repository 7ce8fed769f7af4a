# Corrections of what the driver knows about a printer.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
capabilities Dock3
= same "as the model"

# The model's specifications can be seen but not changed; the margin always can, up to what the
# head leaves. The question about overriding them may be declined.
sheet Dock3 --device
  page "Tools"
  click 614
  page #1
  choose 397 "Millimeters"
  apply
  page "Specifications"
  state
  = {"title": "Specifications", "apply": false}
  = 624 {"checked": 0, "enabled": true}
  = 626 {"text": "300", "readonly": true}
  = 627 {"text": "300", "readonly": true}
  = 631 {"text": "104.0 mm", "readonly": true}
  = 625 {"items": ["Left", "Center", "Right"], "selection": [0], "enabled": false}
  = 516 {"text": "20.0 mm", "readonly": true}
  = 518 {"text": "114.0 mm", "readonly": true}
  = 514 {"text": "6.0 mm", "readonly": true}
  = 520 {"text": "1854.0 mm", "readonly": true}
  = 505 {"text": "1.0 mm", "enabled": true, "readonly": false}
  = 725 {"enabled": true}
  type 505 "12 mm"
  state
  = 505 {"text": "12 mm"}
  leave
  state
  = {"apply": true}
  = 505 {"text": "10.0 mm"}
  type 505 "-1"
  leave
  state
  = 505 {"text": "0.0 mm"}
  click 725
  state
  = {"apply": false}
  = 505 {"text": "1.0 mm"}
  click 624
  state
  = {"window": "message", "title": "Printer Specifications", "buttons": ["OK", "Cancel"], "icon": "warning", "text": "~\n\nOverride them?"}
  answer Cancel
  state
  = {"apply": false}
  = 624 {"checked": 0}
  = 626 {"readonly": true}
  cancel
  cancel
capabilities Dock3
= same "as the model"

# They begin as the model's, are limited, and are the printer's from Apply on.
sheet Dock3 --device
  page "Tools"
  click 614
  page #2
  click 624
  answer OK
  state
  = {"apply": true}
  = 624 {"checked": 1}
  = 626 {"text": "300", "readonly": false}
  = 625 {"enabled": true, "selection": [0]}
  = 520 {"text": "1854.0 mm", "readonly": false}
  type 626 "23"
  type 627 "9601"
  type 631 "0"
  type 516 "120 mm"
  type 518 "4000 mm"
  type 514 "0.5 mm"
  type 520 "9 in"
  leave
  state
  = 626 {"text": "24"}
  = 627 {"text": "9600"}
  = 631 {"text": "1.0 mm"}
  = 516 {"text": "120.0 mm"}
  = 518 {"text": "3048.0 mm"}
  = 514 {"text": "1.0 mm"}
  = 520 {"text": "228.6 mm"}
  type 518 "90"
  type 631 "95"
  type 514 "300"
  type 626 "200"
  type 627 "300"
  leave
  state
  = 516 {"text": "90.0 mm"}
  = 518 {"text": "90.0 mm"}
  = 631 {"text": "90.0 mm"}
  = 514 {"text": "228.6 mm"}
  = 505 {"text": "0.0 mm"}
  type 631 "80"
  type 505 "30"
  leave
  state
  = 505 {"text": "10.0 mm"}
  choose 625 "Right"
  ok
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/values/Unprintable Width/data": "10270000", "/keys/Specifications/values/Override/data": "01", "/keys/Specifications/values/X Resolution/data": "c8000000", "/keys/Specifications/values/Y Resolution/data": "2c010000", "/keys/Specifications/values/Printable Width/data": "80380100", "/keys/Specifications/values/Tracking/data": "00000000"}
= {"/keys/Specifications/values/Minimum Page Width/data": "c0d40100", "/keys/Specifications/values/Maximum Page Width/data": "905f0100", "/keys/Specifications/values/Minimum Page Length/data": "e0930400", "/keys/Specifications/values/Maximum Page Length/data": "f87c0300"}
capabilities Dock3
= {"/resolutions": [[200, 300]]}

# Media in the middle has no margin. Without the override nothing is kept, and Apply shows the model again.
sheet Dock3 --device
  page "Tools"
  click 614
  page #2
  state
  = {"apply": false}
  = 624 {"checked": 1}
  = 625 {"selection": [2]}
  = 505 {"text": "10.0 mm"}
  choose 625 "Center"
  type 626 "203"
  leave
  state
  = 505 {"text": "", "enabled": false}
  = 725 {"enabled": false}
  = 504 {"enabled": false}
  = 503 {"enabled": false}
  = 502 {"enabled": false}
  apply
  click 624
  state
  = {"apply": true}
  = 624 {"checked": 0}
  = 626 {"readonly": true}
  = 625 {"selection": [1], "enabled": false}
  cancel
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/values/Unprintable Width/data": "00000000", "/keys/Specifications/values/Tracking/data": "02000000"}
sheet Dock3 --device
  page "Tools"
  click 614
  page #2
  click 624
  apply
  state
  = {"apply": false}
  = 624 {"checked": 0}
  = 626 {"text": "300", "readonly": true}
  = 625 {"selection": [0], "enabled": false}
  = 505 {"enabled": true, "text": "0.0 mm"}
  click 725
  ok
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/keys/Specifications": null}
capabilities Dock3
= same "as the model"

# A printer for media in the middle.
install Jewel --model "Valdrick J2 Center"
sheet Jewel --device
  page "Tools"
  click 614
  page #2
  state
  = 625 {"selection": [1]}
  = 505 {"text": "", "enabled": false}
  = 725 {"enabled": false}
  ok
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Jewel\PrinterDriverData\Settings"
= {"/values/Unprintable Width/data": "00000000"}
