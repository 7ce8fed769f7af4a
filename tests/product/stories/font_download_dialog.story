# What the dialog for downloads offers; the names of its fonts are those of the machine.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
sheet Dock3 --device
  page "Fonts"
  select 801 #0
  menu 803 813
  state dialog
  = {"title": "Download Font", "window": "font"}
  = 861 {"items": ["TrueType font", "Bitmap font"], "selection": [0]}
  = 862 {"items": 8, "selection": [7], "enabled": false}
  = 863 {"visible": false}
  = 865 {"items": ["R: Working memory", "E: Flash memory", "B: Memory card", "A: Second memory card"], "selection": [0]}
  = 866 {"limit": 8, "text": "~FW"}
  = 1136 {"text": "!~?", "selection": 1}
  = 1138 {"visible": false}
  choose 861 "Bitmap font"
  state bitmap
  = 862 {"selection": [7], "enabled": true}
  = 866 {"text": "~12RFW"}
  = 1138 {"visible": true}
  choose 862 "Numbers"
  choose 861 "TrueType font"
  choose 861 "Bitmap font"
  state again
  = 862 {"selection": [7]}
  # Another size, another name; what the user types stays until he picks another font.
  choose 1138 "24"
  state size
  = 866 {"text": "~24RFW"}
  type 866 "MINE"
  choose 865 "B: Memory card"
  state typed
  = 866 {"text": "MINE"}
  choose 1137 "Bold"
  state bold
  = 866 {"text": "~24BFW"}
  = 865 {"selection": [2]}
  click 1038
  cancel
  state none
  = 801 {"items": 22}
  = {"apply": false}
  cancel
= {"/acts/0/kind": "help", "/acts/0/parameters": "/base/Fonts_Download.html"}
