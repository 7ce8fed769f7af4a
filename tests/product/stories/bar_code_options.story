# The options of each bar code: chosen, stored with the font, and shown again.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings" "Measurement System" 3 01000000

sheet Dock3 --device
  page "Fonts"
  menu 803 811
  type 831 "A"
  choose 832 "Code 128"
  state code128
  = 2010 {"items": ["Automatic", "A", "B", "C", "UCC case code"], "selection": [0], "enabled": true}
  = 2011 {"checked": 0, "enabled": true}
  choose 2010 "B"
  check 2011 on
  ok
  menu 803 811
  type 831 "B"
  choose 832 "Codabar"
  choose 2013 "b"
  choose 2015 "d"
  ok
  menu 803 811
  type 831 "C"
  choose 832 "UPC-A"
  state upc
  = 2016 {"text": "0.07 in"}
  = 2017 {"enabled": false}
  = 2018 {"items": ["None"], "enabled": false}
  type 2016 "0.2 in"
  ok
  menu 803 811
  type 831 "D"
  choose 832 "PDF417"
  state pdf417
  = 2102 {"items": 10, "selection": [0]}
  = 2101 {"text": "3 X"}
  = 2103 {"items": 31, "selection": [0]}
  = 2100 {"checked": 0, "enabled": true}
  choose 2102 "7"
  choose 2101 "2 X"
  choose 2103 "12"
  check 2100 on
  ok
  menu 803 811
  type 831 "E"
  choose 832 "Data Matrix"
  state matrix
  = 2307 {"items": 6, "text": "ECC 200"}
  = 2303 {"selection": [], "enabled": false}
  = 2308 {"checked": 0, "enabled": true}
  = 2301 {"selection": [0], "enabled": false}
  = 2305 {"selection": [0], "enabled": false}
  = 2306 {"checked": 0, "enabled": false}
  choose 2307 "ECC 000"
  state first
  = 2303 {"selection": [0], "enabled": true}
  = 2308 {"checked": 0, "enabled": false}
  = 2301 {"selection": [], "enabled": false}
  choose 2303 #3
  choose 2307 "ECC 200"
  check 2308 on
  choose 2301 "Macro 06"
  state last
  = 2301 {"selection": [2], "enabled": true}
  ok
  menu 803 811
  type 831 "F"
  choose 832 "MaxiCode"
  state maxicode
  = 2201 {"items": {"3": "6: Reader program"}, "selection": [0]}
  = 2202 {"enabled": false}
  = 2203 {"enabled": false}
  choose 2201 #2
  ok
  menu 803 811
  type 831 "G"
  choose 832 "QR Code"
  state qr
  = 2401 {"items": ["1", "2"], "selection": [1]}
  = 2404 {"items": ["Automatic"], "enabled": false}
  = 2406 {"items": 6, "selection": [0]}
  = 2408 {"items": 4, "selection": [0]}
  choose 2401 "1"
  choose 2406 "Kanji"
  choose 2408 #3
  ok
  menu 803 811
  type 831 "H"
  choose 832 "Code 49"
  choose 558 "7 X"
  ok
  menu 803 811
  type 831 "I"
  choose 832 "Aztec"
  choose 668 "40%"
  check 673 on
  ok
  menu 803 811
  type 831 "J"
  choose 832 "RSS"
  state rss
  = 665 {"items": 6, "selection": [0]}
  = 655 {"selection": [0], "enabled": false}
  = 658 {"enabled": false}
  choose 665 "RSS Expanded"
  choose 655 "8"
  ok
  menu 803 811
  type 831 "K"
  choose 832 "Composite"
  state composite
  = 665 {"items": 12, "selection": [0]}
  choose 665 "UPC-A"
  ok
  ok

sheet Dock3 --device
  page "Fonts"
  double 801 "A"
  state
  = 832 {"text": "Code 128"}
  = 2010 {"text": "B"}
  = 2011 {"checked": 1}
  cancel
  double 801 "B"
  state
  = 2013 {"text": "b"}
  = 2015 {"text": "d"}
  cancel
  double 801 "C"
  state
  = 2016 {"text": "0.20 in"}
  cancel
  double 801 "D"
  state
  = 2102 {"text": "7"}
  = 2101 {"text": "2 X"}
  = 2103 {"text": "12"}
  = 2100 {"checked": 1}
  cancel
  double 801 "E"
  state
  = 2307 {"text": "ECC 200"}
  = 2308 {"checked": 1}
  = 2301 {"text": "Macro 06"}
  choose 2307 "ECC 140"
  state
  = 2303 {"selection": [3]}
  cancel
  double 801 "F"
  state
  = 2201 {"text": "4: Standard symbol"}
  cancel
  double 801 "G"
  state
  = 2401 {"text": "1"}
  = 2406 {"text": "Kanji"}
  = 2408 {"text": "H (30%)"}
  cancel
  double 801 "H"
  state
  = 558 {"text": "7 X"}
  cancel
  double 801 "I"
  state
  = 668 {"text": "40%"}
  = 671 {"selection": [0]}
  = 673 {"checked": 1}
  cancel
  double 801 "J"
  state
  = 665 {"text": "RSS Expanded"}
  = 655 {"text": "8", "enabled": true}
  cancel
  double 801 "K"
  state
  = 665 {"text": "UPC-A"}
  cancel
  state
  = {"apply": false}
  cancel
