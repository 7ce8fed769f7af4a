# The page for resolution, colour and the dithering of pictures, with its two dialogs.
install Spot --model "Valdrick C4 Spot Color"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Spot\Settings" "Measurement System" 3 01000000

# Colour, and what follows from it.
sheet Spot --document --out $DIR/colour
  page "Graphics"
  state
  = {"apply": false}
  = 364 {"items": ["300 dpi x 300 dpi"], "selection": [0]}
  = 309 {"items": ["Monochrome", "Color"], "selection": [1]}
  = 341 {"items": ["None", "Saturation", "Contrast", "Colorimetric", "Absolute colorimetric"], "selection": [1], "enabled": true}
  = 342 {"enabled": true}
  = 1320 {"checked": 0, "enabled": true}
  = 1321 {"checked": 1, "enabled": true}
  = 1325 {"checked": 0, "enabled": false}
  = 340 {"enabled": true}
  = 339 {"enabled": true}
  = 405 {"enabled": false}
  = 406 {"enabled": false}
  choose 309 "Monochrome"
  state
  = {"apply": true}
  = 341 {"enabled": false, "selection": [0]}
  = 342 {"enabled": false}
  = 405 {"enabled": false}
  choose 309 "Color"
  state
  = {"apply": true}
  = 341 {"enabled": true, "selection": [0]}
  = 342 {"enabled": true}
  choose 341 "Saturation"
  state as_before
  = {"apply": false}
  choose 341 "Colorimetric"
  choose 364 #0
  state
  = {"apply": true}
  = 341 {"selection": [3]}
  ok
= {"/result": "ok"}
document Spot --in $DIR/colour
= {"/public/dmColor": 2, "/public/dmICMMethod": 2, "/public/dmICMIntent": 3, "/public/dmPrintQuality": 300, "/public/dmYResolution": 300}

sheet Spot --document --in $DIR/colour --out $DIR/unmatched
  page "Graphics"
  choose 341 "None"
  ok
document Spot --in $DIR/unmatched
= {"/public/dmColor": 2, "/public/dmICMMethod": 1, "/public/dmICMIntent": 3}

# The buttons are in another order than the numbers of the methods. Each method has its own list.
sheet Spot --document --out $DIR/methods
  page "Graphics"
  click 1322
  state
  = {"apply": true}
  = 1321 {"checked": 0}
  = 1322 {"checked": 1}
  = 340 {"enabled": true}
  click 340
  state
  = {"window": "dialog", "title": "Dithering Setup"}
  = 545 {"items": ["2 x 2", "4 x 4", "8 x 8"], "selection": [2]}
  choose 545 "2 x 2"
  cancel
  click 340
  state nothing_kept
  = 545 {"selection": [2]}
  choose 545 "4 x 4"
  ok
  click 1323
  click 340
  state
  = 545 {"items": 20, "selection": [18]}
  = 545 {"items": {"0": "A = 1, B = 1, C = 2", "18": "A = 872, B = 1278, C = 1873", "19": "A = 1278, B = 1873, C = 2745"}}
  choose 545 #19
  ok
  click 1324
  click 340
  state
  = 545 {"items": ["Floyd-Steinberg", "Jarvis"], "selection": [0]}
  choose 545 "Jarvis"
  help
  ok
  click 1320
  state
  = 1320 {"checked": 1}
  = 1324 {"checked": 0}
  = 340 {"enabled": false}
  = 339 {"enabled": true}
  click 1322
  click 340
  state
  = 545 {"selection": [1]}
  ok
  click 1323
  help
  ok
= {"/acts/0/kind": "help", "/acts/0/parameters": "/base/Graphics_Dithering.html"}
= {"/acts/1/kind": "help", "/acts/1/parameters": "/base/Graphics.html"}
document Spot --in $DIR/methods
= {"/configuration/dither": {"algorithm": 3, "dispersed_matrix": 1, "clustered_matrix": 2, "sequence": 19, "diffusion_kernel": 1}}

# Every method is stored by its number.
sheet Spot --document --out $DIR/m0
  page "Graphics"
  click 1320
  ok
document Spot --in $DIR/m0
= {"/configuration/dither/algorithm": 0}
sheet Spot --document --in $DIR/m0 --out $DIR/m1
  page "Graphics"
  state
  = 1320 {"checked": 1}
  = 1321 {"checked": 0}
  = 340 {"enabled": false}
  click 1322
  ok
document Spot --in $DIR/m1
= {"/configuration/dither/algorithm": 1}
sheet Spot --document --in $DIR/m1 --out $DIR/m2
  page "Graphics"
  state
  = 1322 {"checked": 1}
  click 1321
  ok
document Spot --in $DIR/m2
= {"/configuration/dither/algorithm": 2}
sheet Spot --document --in $DIR/m2 --out $DIR/m4
  page "Graphics"
  click 1324
  ok
document Spot --in $DIR/m4
= {"/configuration/dither/algorithm": 4}

# The screens of clustered dots are the system's own, which has no dialog for them here.
sheet Spot --document
  page "Graphics"
  click 340
  click 339
  state
  = {"window": "sheet", "title": "Graphics", "apply": false}
  ok
= {"/result": "ok"}

# The printer's own dithering has no settings.
document Spot --set dither.algorithm=5 --out $DIR/own
= {"/configuration/dither/algorithm": 5}
sheet Spot --document --in $DIR/own
  page "Graphics"
  state
  = 1325 {"checked": 1, "enabled": false}
  = 1320 {"checked": 0}
  = 340 {"enabled": true}
  = 339 {"enabled": false}
  click 340
  state
  = {"window": "sheet", "apply": false}

# Numbers that are in no list: nothing is selected, and looking at it changes nothing.
document Spot --set dither.algorithm=3 --set dither.sequence=25 --out $DIR/odd
sheet Spot --document --in $DIR/odd --out $DIR/odd2
  page "Graphics"
  click 340
  state
  = 545 {"selection": []}
  ok
  state
  = {"apply": false}
  ok
document Spot --in $DIR/odd2
= {"/configuration/dither/sequence": 25}

# Colour adjustment.
sheet Spot --document --out $DIR/adjusted
  page "Graphics"
  click 1324
  click 339
  state
  = {"window": "dialog", "title": "Color Adjustment"}
  = 345 {"range": [-100, 100], "position": 0}
  = 346 {"range": [-100, 100], "position": 0}
  = 349 {"range": [-100, 100], "position": 0}
  = 350 {"range": [-100, 100], "position": 0}
  = 351 {"range": [-100, 100], "position": 0}
  = 347 {"text": "0"}
  = 354 {"text": "0"}
  = 544 {"checked": 0}
  = 545 {"checked": 0}
  = 546 {"checked": 0}
  slide 345 100
  slide 349 -100
  check 544 on
  state
  = 347 {"text": "100"}
  = 352 {"text": "-100"}
  cancel
  click 339
  state nothing_kept
  = 345 {"position": 0}
  = 347 {"text": "0"}
  = 349 {"position": 0}
  = 544 {"checked": 0}
  slide 345 15
  slide 346 -25
  slide 349 1
  slide 350 50
  slide 351 -7
  check 544 on
  check 546 on
  state
  = 347 {"text": "15"}
  = 348 {"text": "-25"}
  = 352 {"text": "1"}
  = 353 {"text": "50"}
  = 354 {"text": "-7"}
  help
  ok
  click 339
  check 544 off
  check 545 on
  ok
  ok
= {"/acts/0/parameters": "/base/Graphics_Color.html"}
document Spot --in $DIR/adjusted
= {"/configuration/dither": {"brightness": 15, "contrast": -25, "red": 1, "green": 50, "blue": -7, "flags": 22}}

# A page down moves by ten.
sheet Spot --document --in $DIR/adjusted --out $DIR/keys
  page "Graphics"
  click 339
  slide 345 15
  key PAGEDOWN
  state
  = 347 {"text": "25"}
  = 544 {"checked": 0}
  = 545 {"checked": 1}
  = 546 {"checked": 1}
  ok
  ok
document Spot --in $DIR/keys
= {"/configuration/dither/brightness": 25}

# What was applied stays after Cancel; what was done since does not.
sheet Spot --document --out $DIR/applied
  page "Graphics"
  click 1322
  apply
  state
  = {"apply": false}
  click 1323
  click 340
  choose 545 #0
  ok
  choose 309 "Monochrome"
  cancel
= {"/result": "cancel", "/applied": true}
document Spot --in $DIR/applied
= {"/configuration/dither/algorithm": 1, "/configuration/dither/sequence": 18, "/public/dmColor": 2}
document Spot
= {"/configuration/dither/algorithm": 2}

# The printing defaults. Neither button for the inks does anything that this driver knows.
sheet Spot --defaults
  page "Graphics"
  state
  = 405 {"enabled": false}
  = 406 {"enabled": false}
  choose 309 "Monochrome"
  click 1324
  cancel
= {"/result": "cancel"}
document Spot
= {"/configuration/dither/algorithm": 2, "/public/dmColor": 2}
sheet Spot --defaults
  page "Graphics"
  choose 309 "Monochrome"
  click 1324
  ok
document Spot
= {"/configuration/dither/algorithm": 4, "/public/dmColor": 1, "/public/dmICMMethod": 1}

# Black only, in several resolutions; and one direction of a document set otherwise.
install Fine --model "Valdrick X4 600 dpi"
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Fine\Settings" "Measurement System" 3 01000000
sheet Fine --document --out $DIR/fine
  page "Graphics"
  state
  = 364 {"items": ["600 dpi x 600 dpi", "300 dpi x 300 dpi"], "selection": [0]}
  = 309 {"items": ["Monochrome"], "selection": [0]}
  = 341 {"enabled": false, "selection": [1]}
  choose 364 #1
  state
  = {"apply": true}
  choose 364 #0
  state
  = {"apply": false}
  choose 364 "300 dpi x 300 dpi"
  ok
document Fine --in $DIR/fine
= {"/public/dmPrintQuality": 300, "/public/dmYResolution": 300, "/configuration/dither/clustered_matrix": 3}
