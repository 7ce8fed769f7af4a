# Bar code and RFID fonts: edited, replaced, removed, and shown by kinds.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings" "Measurement System" 3 01000000

# A new bar code font. Nothing is stored if the sheet is cancelled.
sheet Dock3 --device
  page "Fonts"
  state fonts
  = {"apply": false}
  = 801 {"items": 22, "selection": 0}
  = 802 {"text": "Fonts\t22", "readonly": true}
  menu 803 811
  state new
  = {"title": "Bar Code Font", "focus": 831}
  = 831 {"text": "Bar Code", "limit": 20}
  = 832 {"text": "Code 39 Full ASCII"}
  = 833 {"items": 4, "selection": [0]}
  = 834 {"items": 18, "text": "16.7 mils", "enabled": true}
  = 835 {"items": {"0": "Automatic", "1": "2.0 : 1"}, "selection": [0], "enabled": true}
  = 836 {"items": ["None", "Above", "Below"], "selection": [2]}
  = 837 {"checked": 0}
  = 838 {"items": 14, "text": "Western"}
  = 839 {"items": ["-20", "-10", "0", "+10", "+20"], "selection": [2]}
  = 2008 {"checked": 0, "enabled": true}
  type 831 "Shelf \"1\""
  choose 833 #1
  choose 834 "10.0 mils"
  state narrow
  = 835 {"items": ["Automatic", "2.0 : 1", "2.3 : 1", "2.4 : 1", "2.6 : 1", "2.7 : 1", "3.0 : 1"]}
  choose 835 "2.3 : 1"
  choose 836 "Above"
  check 837 on
  choose 838 "Greek"
  choose 839 "+10"
  check 2008 on
  ok
  state added
  = {"apply": true}
  = 801 {"items": {"22": ["Shelf 1", "Bar code", ""]}}
  select 801 "Shelf 1"
  state selected
  = 802 {"text": "~Bar code\tCode 39 Full ASCII"}
  = 802 {"text": "~Module width\t10.0 mils"}
  = 802 {"text": "~Character set\tGreek"}
  = 802 {"text": "~Code page\t1253"}
  select 801 "Shelf 1" "Barcode Code 39"
  state two
  = 802 {"text": "Selected fonts\t2"}
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Data Fonts"
= {"/keys/Barcode Code 39/values/Data/type": 3, "/keys/Shelf 1": null}

# A copy of the selected font; its symbology is changed.
sheet Dock3 --device
  page "Fonts"
  select 801 "Barcode EAN-13"
  menu 803 811
  state copy
  = 831 {"text": "Barcode EAN-13"}
  = 832 {"text": "EAN-13"}
  = 835 {"items": ["Automatic"], "enabled": false}
  = 2008 {"checked": 1, "enabled": false}
  type 831 "Shelf"
  type 2016 "0.1 in"
  leave
  state guard
  = 2016 {"text": "0.10 in"}
  choose 832 "MaxiCode"
  state maxicode
  = {"focus": 832}
  = 834 {"enabled": false}
  = 836 {"items": ["None"], "enabled": false}
  = 2201 {"selection": [0]}
  choose 832 "MicroPDF417"
  choose 554 "2"
  state rows
  = 553 {"items": ["8", "11", "14", "17", "20", "23", "26"], "selection": [0], "enabled": true}
  choose 553 "14"
  choose 2101 "5 X"
  ok
  apply
  state applied
  = {"apply": false}
  cancel
= {"/applied": true}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Data Fonts"
= {"/keys/Shelf/values/Data/type": 3}

# It comes back as it was stored. A cancelled editor leaves it, a confirmed one changes it.
sheet Dock3 --device
  page "Fonts"
  double 801 "Shelf"
  state again
  = 832 {"text": "MicroPDF417"}
  = 554 {"text": "2"}
  = 553 {"text": "14"}
  = 2101 {"text": "5 X"}
  choose 554 "Automatic"
  state automatic
  = 553 {"items": ["Automatic"], "enabled": false}
  cancel
  state unchanged
  = {"apply": false}
  select 801 "Shelf"
  menu 804 814
  choose 832 "Aztec"
  choose 671 "6"
  state layers
  = 668 {"text": "Automatic"}
  = 672 {"text": "Full range"}
  choose 672 "Compact"
  state compact
  = 671 {"text": "1"}
  type 831 "BARCODE code 39"
  ok
  state replace
  = {"window": "message", "text": "~\"BARCODE code 39\"", "buttons": ["OK", "Cancel"], "icon": "warning"}
  answer Cancel
  state name
  = {"window": "dialog", "focus": 831}
  ok
  answer OK
  state replaced
  = {"apply": true}
  = 801 {"items": 22}
  = 802 {"text": "~Bar code\tAztec"}
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Data Fonts"
= {"/keys/Shelf": null, "/keys/Barcode Code 39": null, "/keys/BARCODE code 39/values/Data/type": 3}

# RFID fonts, with what the kind of tag allows. They come after the bar code fonts.
install Gate1 --model "Valdrick R4 RFID"
upgrade Gate1
sheet Gate1 --device
  page "Fonts"
  menu 803 812
  state new
  = {"title": "RFID Font"}
  = 851 {"text": "RFID", "limit": 20}
  = 852 {"text": "Western"}
  = 853 {"selection": [2]}
  = 854 {"items": ["ISO 15693", "EPC-64", "EPC-96", "Tag-It HF", "I-CODE1", "Picotag"], "text": "EPC-64"}
  = 855 {"items": ["ASCII", "Hexadecimal", "EPC"], "selection": [0]}
  = 856 {"items": ["General", "SSCC-64", "SGTIN-64", "SGLN-64", "Custom"], "selection": [0]}
  = 857 {"text": "64", "enabled": false}
  = 858 {"checked": 0, "enabled": false}
  = 859 {"text": "0", "enabled": false}
  choose 856 "SGTIN-64"
  state mask
  = 857 {"text": "2:2;3;14;20;25", "enabled": false}
  choose 856 "Custom"
  state custom
  = 857 {"enabled": true}
  type 857 "8;56"
  choose 855 "EPC"
  choose 854 "EPC-96"
  state epc96
  = 856 {"items": ["General", "Custom"], "selection": [0]}
  = 857 {"text": "96", "enabled": false}
  = 855 {"selection": [0]}
  choose 854 "I-CODE1"
  state icode
  = 855 {"items": ["ASCII", "Hexadecimal"]}
  = 856 {"items": 0}
  = 857 {"text": "", "enabled": false}
  = 858 {"enabled": true}
  = 859 {"text": "5", "enabled": true}
  choose 854 "ISO 15693"
  type 851 "Tag"
  choose 852 "Turkish"
  choose 853 "-10"
  choose 855 "Hexadecimal"
  check 858 on
  type 859 "200"
  ok
  select 801 "Tag"
  state tag
  = 801 {"items": {"22": ["RFID EPC-64", "RFID", ""], "31": ["Tag", "RFID", ""]}}
  = 802 {"text": "~Type\tRFID"}
  = 802 {"text": "~Code page\t1254"}
  ok
sheet Gate1 --device
  page "Fonts"
  double 801 "Tag"
  state again
  = 852 {"text": "Turkish"}
  = 853 {"text": "-10"}
  = 854 {"text": "ISO 15693"}
  = 855 {"text": "Hexadecimal"}
  = 858 {"checked": 1}
  = 859 {"text": "123"}
  choose 855 "ASCII"
  ok
  state edited
  = {"apply": true}

  # What is shown is remembered at once; it is no change.
  cancel
sheet Gate1 --device
  page "Fonts"
  menu 805 822
  state tags
  = {"apply": false}
  = 801 {"items": {"0": ["RFID EPC-64", "RFID", ""], "9": ["Tag", "RFID", ""]}}
  column 801 #1
  click 805
  state view
  = {"items": {"0": {"id": 821, "checked": true}, "1": {"id": 822, "checked": false}, "2": {"id": 823, "checked": true}}}
  key ESC
  select 801 #0 "Tag"
  menu 804 815
  state question
  = {"window": "message", "title": "Delete Fonts", "text": "Do you wish to delete the selected fonts?", "buttons": ["OK", "Cancel"]}
  answer Cancel
  menu 804 815
  answer OK
  state fewer
  = {"apply": true}
  = 801 {"items": 8, "selection": 0}
  = 802 {"text": "Fonts\t8"}
  click 804
  state nothing
  = {"items": {"0": {"id": 814, "enabled": false}, "1": {"id": 815, "enabled": false}, "4": {"id": 817, "enabled": false}, "6": {"id": 818, "enabled": true}, "7": {"id": 819, "enabled": true}}}
  key ESC
  menu 804 818
  state office
  = {"title": "Office Compatibility"}
  cancel
  menu 804 819
  state administration
  = {"window": "sheet", "sheet": "~Administration"}
  cancel
  # Adding a font shows its kind again.
  menu 803 811
  type 831 "Last"
  ok
  state shown
  = 801 {"items": {"22": ["Last", "Bar code", ""], "30": {"1": "RFID"}}}
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate1\PrinterDriverData\Data Fonts"
= {"/keys/Tag/values/Data/type": 3, "/keys/Last": null}
