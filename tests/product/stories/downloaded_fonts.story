# A font of the system goes into the printer, is found there, is sent again and is removed.
# Wine prints without the driver.
native
emulator
install Dock3 --model "Valdrick X4 300 dpi" --port $EMULATOR

sheet Dock3 --device
  page "Fonts"
  menu 803 813
  type 866 "OUTLINE"
  ok
  menu 803 813
  choose 861 "Bitmap font"
  choose 862 "Numbers"
  type 1138 "14"
  choose 865 "E: Flash memory"
  type 866 "NUMBERS"
  ok
  # Downloads are listed first, stored already, and no change of the sheet.
  state sent
  = {"apply": false}
  = 801 {"items": {"0": {"1": "Downloaded", "2": ""}, "1": {"0": "~ 14", "1": "Downloaded", "2": ""}, "23": ["Barcode DataBar Composite", "Bar code", ""]}}
  select 801 #0
  state outline
  = 802 {"text": "~Type\tDownloaded font (TrueType)"}
  = 802 {"text": "~File name\tOUTLINE.FNT"}
  = 802 {"text": "~Identifier\tI (R)"}
  = 802 {"text": "~Size\t"}
  select 801 #1
  state numbers
  = 802 {"text": "~Type\tDownloaded font (Bitmap)"}
  = 802 {"text": "~Identifier\tJ (E)"}
  = 802 {"text": "~Character set\tNumbers"}
  menu 804 817
  state verified
  = {"apply": false}
  = 801 {"items": {"0": {"2": "In the printer"}, "1": {"2": "In the printer"}, "23": {"2": ""}}, "selection": 1}
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Downloaded Fonts"
= {"/values/Downloaded Font Total/data": "02000000", "/values/Downloaded Font 02: Point Size/data": "8c000000", "/values/Downloaded Font 02: Character Subset/data": "7b070000"}

# One that the printer has lost is missing, and comes back. Those of other hosts are found.
file lose.zpl
  ^XA^IDR:OUTLINE.FNT^FS^XZ~DUE:OTHER,4,00000000^XA^CWQ,E:OTHER.FNT^FS^XZ
action Dock3 22 $DIR/lose.zpl
sheet Dock3 --device
  page "Fonts"
  select 801 #0 #1
  state loaded
  = 801 {"items": {"0": {"2": ""}, "1": {"2": ""}}}
  = 802 {"text": "Selected fonts\t2"}
  menu 804 817
  state missing
  = {"apply": false}
  = 801 {"items": {"0": {"2": "Not in the printer"}, "1": {"2": "In the printer"}, "2": ["Unknown font", "Downloaded", "In the printer"]}, "selection": [0, 1]}
  menu 804 816
  menu 804 817
  state back
  = 801 {"items": {"0": {"2": "In the printer"}, "1": {"2": "In the printer"}, "2": {"2": "In the printer"}}}
  select 801 #2
  state other
  = 802 {"text": "Type\tDownloaded font (Other)\r\nFile name\tOTHER.FNT\r\nIdentifier\tQ (E)\r\nSize\t4"}
  # A downloaded font cannot be edited.
  double 801 #2
  click 804
  state edit
  = {"window": "menu", "items": {"0": {"id": 814, "enabled": false}, "1": {"id": 815, "enabled": true}, "4": {"id": 817, "enabled": true}}}
  key ESC
  select 801 #0 #1
  menu 804 815
  answer OK
  state removed
  = {"apply": false}
  = 801 {"items": {"0": ["Unknown font", "Downloaded", "In the printer"]}, "selection": 0}
  = 802 {"text": "Fonts\t23"}
  menu 804 817
  state gone
  = 801 {"items": {"0": ["Unknown font", "Downloaded", "In the printer"]}}
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Downloaded Fonts"
= {"/values/Downloaded Font Total/data": "01000000", "/values/Downloaded Font 01: Type/data": "00000000"}
