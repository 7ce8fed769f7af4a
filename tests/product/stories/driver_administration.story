# The settings of a printer: who may change them, who shares them, and files that have them.
install Gate --model "Valdrick R4 RFID"
upgrade Gate
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate\PrinterDriverData\Settings" "Local Access Level" 3 02000000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate\PrinterDriverData\Settings" "Network Access Level" 3 01000000
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate"
= same "as installed"

# A label size that is new, one that replaces another, and driver settings of another printer.
file sizes.kds
  <driver version='6.6'>

  <stock>
  Name=Big
  Data=WkxJQhwAAAAdAAAAeJx70MPIcECSmeEbCwMYg8AObgYGNiANAGVABQc=
  </stock>
  <stock>
  Name=3 x 1 in
  Data=WkxJQhwAAAAdAAAAeJx70MPIcECSmeEbCwMYg8AObgYGNiANAGVABQc=
  </stock>
  <options model='Another'>
  [DATA:\Settings]
  "Function Character"="!"
  </options>

file options.kds
  <driver version='6.6'>

  <options model='Valdrick R4 RFID'>
  [DATA:\Settings\Specifications]
  "Override"=hex:01
  "X Resolution"=dword:00000064
  "Y Resolution"=dword:000000cb
  "Maximum Page Width"=dword:0001bd50
  "Maximum Page Length"=dword:000f1f18
  </options>

# What is imported is gone after Cancel, byte for byte. Users of other computers never have
# more rights than those of this one.
sheet Gate --device
  page "Tools"
  click 614
  state
  = {"title": "Administration", "sheet": "Driver Administration", "apply": false}
  = 679 {"checked": 1, "enabled": true}
  = 680 {"checked": 0, "enabled": true}
  = 681 {"items": ["Administrators", "Power users", "Users", "Everyone"], "selection": [1], "enabled": true}
  = 682 {"items": ["None", "Administrators", "Power users", "Users", "Everyone"], "selection": [2], "enabled": true}
  = 601 {"items": ["Driver settings", "Label sizes", "Presets", "Bar code fonts", "RFID fonts"], "selection": [0, 1, 2, 3, 4]}
  = 602 {"enabled": true}
  = 600 {"enabled": true}
  select 601
  state
  = 602 {"enabled": false}
  = 600 {"enabled": false}
  select 601 "Label sizes" "RFID fonts"
  click 602
  state
  = {"window": "file", "title": "Driver Settings", "filters": ["Driver settings (*.kds)"]}
  file
  state
  = {"window": "sheet", "apply": false}
  = 602 {"enabled": true}
  click 602
  file "$FILES\\part"
  state
  = {"window": "message", "title": "Settings Exported", "buttons": ["OK"], "icon": "information", "text": "Driver settings: No\r\nLabel sizes: 29\r\nPresets: 0\r\nBar code fonts: 0\r\nRFID fonts: 9\r\n"}
  answer OK
  select 601 #0 #1 #2 #3 #4
  click 600
  state
  = {"window": "file", "filters": ["Driver settings (*.kds)", "Settings of older drivers (*.kfm;*.kbf;*.kpr;*.kdm)"]}
  file "sizes.kds" "part.kds"
  state
  = {"title": "Settings Imported", "text": "Driver settings: No\r\nLabel sizes: 31\r\nPresets: 0\r\nBar code fonts: 0\r\nRFID fonts: 9\r\n"}
  answer OK
  choose 681 "Everyone"
  click 680
  state
  = {"apply": true}
  = 680 {"checked": 1}
  cancel
  cancel
= {"/result": "cancel"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate"
= same "as installed"

# A file that has driver settings: they are in use at once, on the other pages too.
sheet Gate --device
  page "Tools"
  click 614
  page #2
  state
  = 624 {"checked": 0}
  = 626 {"text": "203"}
  page #0
  click 600
  file "options.kds" "sizes.kds"
  state
  = {"text": "Driver settings: Yes\r\nLabel sizes: 2\r\nPresets: 0\r\nBar code fonts: 0\r\nRFID fonts: 0\r\n"}
  answer OK
  page #2
  state
  = 624 {"checked": 1}
  = 626 {"text": "100", "readonly": false}
  = 627 {"text": "203"}
  page #0
  apply
  state
  = {"apply": false}
  cancel
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate\PrinterDriverData\Settings"
= {"/values/Local Access Level/data": "02000000", "/values/Network Access Level/data": "02000000"}
settings export Gate $DIR/all.kds
= {"/written/stocks": 30, "/written/presets": 3, "/written/barcode-fonts": 22, "/written/rfid-fonts": 9, "/written/options": 1}

# Levels and sharing are stored on Apply; a printer that answers nobody cannot share.
sheet Gate --device
  page "Tools"
  click 614
  choose 681 "Administrators"
  choose 682 "None"
  click 680
  apply
  state
  = {"apply": false}
  choose 681 "Users"
  cancel
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate\PrinterDriverData\Settings"
= {"/values/Local Access Level/data": "03000000", "/values/Network Access Level/data": "04000000", "/values/Network Sharing/data": "00"}
sheet Gate --device
  page "Tools"
  click 614
  state
  = 680 {"checked": 1}
  = 681 {"selection": [0]}
  = 682 {"selection": [0]}
  click 679
  choose 681 "Everyone"
  ok
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Gate\PrinterDriverData\Settings"
= {"/values/Local Access Level/data": "00000000", "/values/Network Access Level/data": "04000000", "/values/Network Sharing/data": "01"}
