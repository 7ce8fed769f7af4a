# Label sizes are made, changed, renamed and deleted, within the limits of the printer.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings" "Measurement System" 3 02000000

sheet Dock3 --defaults
  choose 512 "4 x 6 in (101.6 mm x 152.4 mm)"
  click 391
  state
  = {"window": "dialog", "title": "Label Size", "focus": 389}
  = 389 {"text": "New Label", "enabled": true, "limit": 31}
  = 393 {"text": "101.6 mm", "enabled": true}
  = 386 {"text": "152.4 mm", "enabled": true}
  = 388 {"text": "1.3 mm", "enabled": true, "limit": 16}
  = 392 {"text": "1.3 mm", "enabled": true, "limit": 16}
  = 382 {"bitmap": 225}
  help
  # A field is the user's while he types, and shows the nearest size when it is left.
  type 393 "130 mm"
  state
  = 393 {"text": "130 mm"}
  leave
  state
  = 393 {"text": "111.5 mm"}
  = 386 {"text": "152.4 mm"}
  type 393 "1 mm"
  leave
  state
  = 393 {"text": "6.4 mm"}
  type 386 "3 m"
  leave
  state
  = 386 {"text": "6.0 mm"}
  type 386 "3000 mm"
  leave
  state
  = 386 {"text": "1854.0 mm"}
  # The liners of a printer that feeds along its left edge are independent.
  type 388 "90 mm"
  state
  = 392 {"text": "1.3 mm"}
  leave
  state
  = 388 {"text": "53.8 mm"}
  = 392 {"text": "1.3 mm"}
  type 392 "wide"
  leave
  state
  = 392 {"text": "0.0 mm"}
  type 388 "2 mm"
  type 392 "2 mm"
  type 393 "130 mm"
  leave
  state
  = 388 {"text": "2.0 mm"}
  = 393 {"text": "110.0 mm"}
  type 393 "50 mm"
  type 386 "25 mm"
  type 389 " Shelf "
  ok
  state
  = {"apply": true}
  = 512 {"text": "Shelf (50.0 mm x 25.0 mm)", "items": 31}
  = 383 {"enabled": true}
  # Some names are refused, and the size stays as it is.
  click 391
  type 389 "user"
  ok
  state
  = {"window": "message", "title": "Name of the Label Size", "buttons": ["OK"]}
  = {"text": "The name \"user\" is reserved. Please choose another name."}
  answer OK
  state
  = {"window": "dialog", "focus": 389}
  = 389 {"text": "New Label"}
  type 389 "USER"
  ok
  answer OK
  state
  = 389 {"text": "New Label"}
  type 389 "user defined"
  ok
  state
  = {"text": "~\"user defined\""}
  answer OK
  type 389 "  "
  ok
  state
  = {"text": "A label size needs a name."}
  answer OK
  state
  = 389 {"text": "New Label"}
  type 389 "Shelf"
  ok
  state
  = {"text": "There already is a label size \"Shelf\". Please choose another name."}
  answer OK
  state
  = {"focus": 389}
  = 389 {"text": "Shelf"}
  cancel
  state
  = 512 {"items": 31, "text": "Shelf (50.0 mm x 25.0 mm)"}
  click 384
  type 389 "A6"
  type 393 "1 mm"
  ok
  answer OK
  cancel
  state
  = 512 {"items": 31, "text": "Shelf (50.0 mm x 25.0 mm)"}
  # Case counts, and a size may keep its own name.
  click 384
  type 389 "shelf"
  ok
  state
  = 512 {"text": "shelf (50.0 mm x 25.0 mm)", "selection": [30]}
  click 384
  ok
  click 384
  type 389 "Shelf 2"
  ok
  state
  = 512 {"text": "Shelf 2 (50.0 mm x 25.0 mm)", "selection": [27], "items": 31}
  apply
  state
  = {"apply": false}
  ok
= {"/result": "ok", "/acts/0/parameters": "/base/PageSetup_Edit.html"}
registry dump "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes"
= {"/values/Total/data": "01000000", "/values/Form 01: Name/data": "5300680065006c006600200032000000"}
= {"/values/Form 01: Data/data": "50c30000a8610000d0070000d007000000000000b80b000004000000"}
document Dock3
= {"/public/dmFormName": "Shelf 2", "/public/dmPaperSize": 283, "/public/dmPaperWidth": 540, "/public/dmPaperLength": 280}

# What is cancelled is not stored.
sheet Dock3 --defaults
  click 383
  state
  = {"window": "message", "title": "Shelf 2 (50.0 mm x 25.0 mm)", "text": "Delete this label size?"}
  = {"buttons": ["Yes", "No"]}
  answer No
  state
  = {"apply": false}
  = 512 {"items": 31, "text": "Shelf 2 (50.0 mm x 25.0 mm)"}
  click 383
  answer Yes
  # The next one takes its place, or the one before if it was the last.
  state
  = {"apply": true}
  = 512 {"items": 30, "selection": [27], "text": "Tag 2.25 x 4 in (57.2 mm x 101.6 mm)"}
  choose 512 #29
  click 383
  answer Yes
  state
  = 512 {"items": 29, "selection": [28], "text": "Wristband 1 x 11 in (25.4 mm x 279.4 mm)"}
  click 391
  type 389 "Passing"
  ok
  cancel
registry dump "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes"
= {"/values/Total/data": "01000000", "/values/Form 01: Data/data": "~50c30000", "/keys/oqv/values/Total/data": "1d000000"}

sheet Dock3 --defaults
  state
  = 512 {"text": "Shelf 2 (50.0 mm x 25.0 mm)"}
  click 383
  answer Yes
  ok
registry dump "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes"
= {"/values/Total/data": "00000000", "/values/Form 01: Name": null, "/values/Form 01: Data": null}
document Dock3
= {"/public/dmFormName": "Tag 2.25 x 4 in", "/public/dmPaperSize": 283}

# The last of all is the user's own size, which can be changed but neither renamed nor deleted.
registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes\oqv" Total 4 01000000
sheet Dock3 --defaults
  state
  = 512 {"items": ["USER (101.6 mm x 152.4 mm)", "1 x 0.5 in (25.4 mm x 12.7 mm)"]}
  choose 512 #1
  click 383
  answer Yes
  state
  = 512 {"items": ["USER (101.6 mm x 152.4 mm)"], "selection": [0]}
  = 383 {"enabled": false}
  click 384
  state
  = {"focus": 393}
  = 389 {"enabled": false, "text": "USER"}
  type 393 "60 mm"
  type 386 "40 mm"
  ok
  state
  = 512 {"items": ["USER (60.0 mm x 40.0 mm)"], "selection": [0]}
  ok
document Dock3
= {"/public/dmPaperSize": 256, "/public/dmPaperWidth": 625, "/public/dmPaperLength": 400, "/public/dmFormName": "USER"}
# It is stored as the document has it: to a tenth of a millimetre, with the liners.
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/values/User Form: Data/data": "38ea0000409c0000f6040000f6040000000000000000000001000000"}

# A label in the middle of the web has equal liners, whichever is typed.
install Ring --model "Valdrick J2 Center"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Ring\Settings" "Measurement System" 3 02000000
sheet Ring --defaults
  click 391
  type 388 "1.5 mm"
  state
  = 392 {"text": "1.5 mm"}
  leave
  type 392 "90 mm"
  state
  = 388 {"text": "90 mm"}
  leave
  state
  = 388 {"text": "26.8 mm"}
  = 392 {"text": "26.8 mm"}
  type 392 "2 mm"
  type 393 "30 mm"
  type 386 "10 mm"
  ok
  ok
registry dump "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes"
= {"/values/Form 01: Data/data": "~3075000010270000d0070000d0070000"}

# A printer that prints shorter labels than others.
install Fine --model "Valdrick X4 600 dpi"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Fine\Settings" "Measurement System" 3 02000000
sheet Fine --defaults
  click 391
  type 386 "1 mm"
  leave
  state
  = 386 {"text": "3.0 mm"}
