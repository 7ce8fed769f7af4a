# The page that every document has: label size, orientation, mirror and negative image, preset.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings" "Measurement System" 3 01000000
# Wine gives a new printer settings of its own.
sheet Dock3 --defaults
  choose 514 "Default Settings"
  ok

# A new printer has its default settings, and looking at them changes nothing.
sheet Dock3 --defaults
  state
  = {"title": "Page Setup", "page": 0, "apply": false, "focus": 512}
  = 512 {"text": "USER (4.00 in x 6.00 in)", "selection": [0], "items": 30, "enabled": true}
  = 512 {"items": {"13": "4 x 6 in (4.00 in x 6.00 in)", "29": "Wristband 30 x 279 mm (1.18 in x 10.98 in)"}}
  = 391 {"enabled": true}
  = 384 {"enabled": true, "text": "&Edit..."}
  = 383 {"enabled": false}
  = 355 {"checked": 1}
  = 352 {"checked": 0, "enabled": true}
  = 348 {"checked": 0, "enabled": true}
  = 362 {"bitmap": 208}
  = 514 {"items": ["Current Settings", "Default Settings", "Draft", "High quality", "Wristband"]}
  = 514 {"text": "Default Settings"}
  = 513 {"enabled": true}
  = 317 {"text": "~ZPL label printer driver", "visible": true}
  = 318 {"visible": false}
  # Every orientation has its picture; what is edited back is no change.
  click 356
  state
  = {"apply": true}
  = 355 {"checked": 0}
  = 356 {"checked": 1}
  = 362 {"bitmap": 209}
  = 514 {"text": "Current Settings"}
  click 355
  state
  = {"apply": false}
  = 514 {"text": "Default Settings"}
  click 358
  click 352
  state
  = 362 {"bitmap": 215}
  click 348
  state
  = 362 {"bitmap": 223}
  click 357
  state
  = 362 {"bitmap": 222}
  click 352
  state
  = 362 {"bitmap": 218}
  choose 512 #13
  state
  = 512 {"text": "4 x 6 in (4.00 in x 6.00 in)"}
  = 383 {"enabled": true}
  # A preset brings its settings; the settings of before come back with the first preset.
  choose 514 "Draft"
  state
  = 514 {"text": "Draft"}
  = 355 {"checked": 1}
  = 348 {"checked": 0}
  = 362 {"bitmap": 208}
  = 512 {"text": "USER (4.00 in x 6.00 in)"}
  = 383 {"enabled": false}
  choose 514 "Wristband"
  state
  = 356 {"checked": 1}
  = 512 {"text": "Wristband 1 x 11 in (1.00 in x 11.00 in)"}
  page "Media"
  state
  = 1010 {"text": "Direct thermal"}
  page "Page Setup"
  state
  = 514 {"text": "Wristband"}
  choose 514 "Current Settings"
  state
  = {"apply": true}
  = 514 {"text": "Current Settings"}
  = 357 {"checked": 1}
  = 348 {"checked": 1}
  = 362 {"bitmap": 218}
  = 512 {"text": "4 x 6 in (4.00 in x 6.00 in)"}
  cancel
= {"/result": "cancel", "/applied": null}
document Dock3
= {"/public/dmOrientation": 1, "/public/dmPaperSize": 256, "/configuration/flags": 0}

# Applied settings stay when the sheet is cancelled later; the advanced settings have a sheet.
sheet Dock3 --defaults
  choose 512 #13
  click 358
  click 352
  click 348
  apply
  state
  = {"apply": false}
  click 506
  state
  = {"sheet": "Advanced Settings", "page": 0}
  cancel
  state
  = {"title": "Page Setup", "apply": false}
  help
  click 355
  cancel
= {"/result": "cancel", "/applied": true, "/acts/0/kind": "help", "/acts/0/parameters": "/base/PageSetup.html"}
document Dock3
= {"/public/dmOrientation": 2, "/public/dmPaperSize": 269, "/public/dmFormName": "4 x 6 in"}
= {"/public/dmPaperWidth": 1041, "/public/dmPaperLength": 1554, "/configuration/flags": 7}

# A document only chooses among what there is.
sheet Dock3 --document --out $DIR/label.dm
  state
  = 512 {"text": "4 x 6 in (4.00 in x 6.00 in)", "enabled": true}
  = 358 {"checked": 1}
  = 391 {"enabled": false}
  = 383 {"enabled": false}
  = 384 {"enabled": true}
  = 513 {"enabled": true}
  choose 512 #1
  state
  = 383 {"enabled": false}
  click 384
  state
  = 389 {"enabled": false, "text": "1 x 0.5 in"}
  = 393 {"enabled": false}
  = 386 {"enabled": false}
  = 388 {"enabled": false}
  = 392 {"enabled": false}
  = 2 {"enabled": true}
  ok
  choose 512 #0
  click 384
  state
  = 389 {"enabled": false, "text": "USER"}
  = 393 {"enabled": true}
  = 392 {"enabled": true}
  type 393 "3 in"
  type 386 "2 in"
  ok
  state
  = 512 {"text": "USER (3.00 in x 2.00 in)"}
  click 357
  check 352 off
  ok
= {"/result": "ok"}
document Dock3 --in $DIR/label.dm
= {"/public/dmOrientation": 1, "/public/dmPaperSize": 256, "/public/dmPaperWidth": 787}
= {"/public/dmPaperLength": 508, "/configuration/flags": 5}
document Dock3
= {"/public/dmOrientation": 2, "/public/dmPaperSize": 269}

# The size of a program's document is the user's own size.
document Dock3 --set dmPaperSize=256 --set dmPaperWidth=572 --set dmPaperLength=320 --out $DIR/odd.dm
sheet Dock3 --document --in $DIR/odd.dm
  state
  = {"apply": false}
  = 512 {"text": "USER (2.15 in x 1.26 in)", "selection": [0]}
  cancel

# A printer without a mirror image.
install Small --model "Valdrick P4 PPLZ"
sheet Small --defaults
  state
  = 352 {"enabled": false, "checked": 0}
  = 348 {"enabled": true}
