# Code pages and bar code fonts for office programs, chosen in a dialog of the fonts page.
install Dock3 --model "Valdrick X4 300 dpi"
# 1253 and one that is not offered
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings" "Additional Code Pages" 7 3100320035003300000034003300370000000000
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3"
= same "before"
sheet Dock3 --device
  page "Fonts"
  menu 804 818
  state
  = {"window": "dialog", "title": "Office Compatibility"}
  = 691 {"selection": [3], "enabled": true, "items": [["1250", "Central European", "CE", "Polish, Czech, Slovak, Hungarian, Romanian"], ["1251", "Cyrillic", "CYR", "Russian, Bulgarian, Ukrainian"], ["1252", "Western", "WE", "English, Spanish, French, German, Italian"], ["1253", "Greek", "GR", "Greek"], ["1254", "Turkish", "TUR", "Turkish"], ["1255", "Hebrew", "HEB", "Hebrew"], ["1256", "Arabic", "ARA", "Arabic"], ["1257", "Baltic", "BAL", "Estonian, Latvian, Lithuanian"], ["1258", "Vietnamese", "VIET", "Vietnamese"], ["874", "Thai", "THAI", "Thai"], ["932", "Japanese", "JA", "Japanese"], ["936", "Simplified Chinese", "CHS", "Simplified Chinese"], ["949", "Korean", "KOR", "Korean"], ["950", "Traditional Chinese", "CHT", "Traditional Chinese"]]}
  = 510 {"checked": 1, "enabled": true}
  select 691 #13 #0
  click 510
  help
  cancel
  state
  = {"title": "Fonts", "apply": false}
  cancel
= {"/acts/0/parameters": "/base/OfficeCompatibility.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3"
= same "before"
sheet Dock3 --device
  page "Fonts"
  menu 804 818
  select 691 #13 #0
  click 510
  ok
  menu 804 818
  state
  = 691 {"selection": [0, 13]}
  = 510 {"checked": 0}
  cancel
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/values/Additional Code Pages/data": "3100320035003000000039003500300000000000", "/keys/Data Fonts/values/Office Compatibility/data": "00"}
