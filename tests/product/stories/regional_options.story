# Language and units of length, and what a German user then sees.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3"
= same "as installed"

sheet Dock3 --device
  page "Tools"
  click 614
  page "Regional Options"
  state
  = {"title": "Regional Options", "sheet": "Driver Administration", "page": 1, "apply": false}
  = 351 {"items": ["As the system", "English", "German"], "selection": [0]}
  = 397 {"items": ["As the system", "Inches", "Millimeters", "Centimeters"], "selection": [0]}
  click 740
  choose 351 "German"
  choose 397 "Centimeters"
  state
  = {"apply": true}
  choose 351 #0
  choose 397 #0
  state
  = {"apply": false}
  choose 351 "German"
  choose 397 "Centimeters"
  help
  cancel
  cancel
= {"/acts/0": {"kind": "run", "what": "RunDLL32.EXE", "parameters": "shell32.dll,Control_RunDLL intl.cpl,,0"}}
= {"/acts/1/kind": "help", "/acts/1/parameters": "/base/RegionalSettings.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3"
= same "as installed"

# After Cancel it is as before. New units are used at once, a new language when a window opens.
sheet Dock3 --device
  page "Tools"
  click 614
  page #1
  state
  = 351 {"selection": [0]}
  = 397 {"selection": [0]}
  choose 351 "German"
  choose 397 "Centimeters"
  apply
  state
  = {"title": "Regional Options", "apply": false}
  page #2
  state
  = 631 {"text": "10.40 cm"}
  ok
  cancel
registry dump "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings"
= {"/values/Language/data": "6400650075000000", "/values/Measurement System/data": "03000000"}
sheet Dock3 --device
  page "Werkzeuge"
  click 614
  page "Region und Sprache"
  state
  = {"sheet": "Treiberverwaltung"}
  = 351 {"items": ["Wie im System", "Englisch", "Deutsch"], "selection": [2]}
  = 397 {"items": ["Wie im System", "Zoll", "Millimeter", "Zentimeter"], "selection": [3]}
  choose 397 "Millimeter"
  ok
  ok
sheet Dock3
  state
  = 512 {"text": "USER (101.6 mm x 152.4 mm)"}
= {"/pages": ["Seite einrichten", "Grafik", "Material", "Optionen", "Info"]}
