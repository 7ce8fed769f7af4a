# The log and the recordings of a printer: the settings, and what can be done with the files. The
# dialog is for printers whose port the status monitor serves.
native
file one.prn
  ^XA^FO10,10^A0N,30,30^FDone^FS^XZ
file two.prn
  ^XA^FO10,10^A0N,30,30^FDtwo^FS^XZ
file log.txt
  job 1
file spare.log
  job 0
install Dock3 --model "Valdrick X4 300 dpi" --port IP_127.0.0.1:1

# What is proposed, and what goes with it. Cancel stores nothing.
sheet Dock3 --device
  page "Tools"
  click 617
  state proposed
  = {"window": "dialog", "title": "Logging"}
  = 531 {"checked": 0}
  = 513 {"checked": 0}
  = 519 {"checked": 0, "enabled": false}
  = 529 {"text": "C:\\Log Files\\Dock3\\Log.txt", "enabled": false}
  = 536 {"enabled": false}
  = 530 {"enabled": false}
  = 515 {"text": "C:\\Log Files\\Dock3", "enabled": false}
  = 527 {"items": [], "enabled": true}
  = 525 {"enabled": false}
  = 526 {"enabled": false}
  check 531 on
  state logs
  = 529 {"enabled": true}
  = 538 {"enabled": true}
  = 517 {"enabled": true}
  = 519 {"enabled": false}
  check 513 on
  state records
  = 515 {"enabled": true}
  = 539 {"enabled": true}
  = 532 {"enabled": true}
  = 519 {"enabled": true}
  check 519 on
  help
  cancel
  cancel
= {"/acts/0/parameters": "/base/Logging.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/keys/Logging": null}

sheet Dock3 --device
  page "Tools"
  click 617
  check 531 on
  check 513 on
  check 519 on
  # The log can be seen as soon as there is a file of that name.
  type 529 "$FILES\\log.tx"
  state none
  = 536 {"enabled": false}
  = 530 {"enabled": false}
  type 529 "$FILES\\log.txt"
  state there
  = 536 {"enabled": true}
  = 530 {"enabled": true}
  click 536

  # The recordings of another folder are shown within a second.
  type 515 "$FILES"
  leave
  state before
  = 527 {"items": []}
  clock 1000
  state listed
  = 527 {"items": ["one.prn", "two.prn"], "selection": []}
  = 526 {"enabled": true}
  = 525 {"enabled": false}
  # A new one: a picture that has the name of a recording. The list waits while the user is in it,
  # and then keeps what was selected.
  select 527 "two.prn"
  picture $DIR/new.prn
  clock 1000
  state waits
  = 527 {"items": ["one.prn", "two.prn"], "selection": [1]}
  = 533 {"enabled": true}
  = 534 {"enabled": true}
  = 525 {"enabled": true}
  leave
  clock 1000
  state appears
  = 527 {"items": ["new.prn", "one.prn", "two.prn"], "selection": [2]}

  double 527 "one.prn"
  select 527 "one.prn" "two.prn"
  click 533
  click 534
  select 527 "new.prn"
  click 525
  state deleted
  = {"focus": 1}
  = 527 {"items": ["one.prn", "two.prn"], "selection": []}
  = 525 {"enabled": false}

  # Folder and log file chosen.
  click 532
  state folder
  = {"window": "folder", "folder": "~Z:"}
  file "C:\\"
  state chosen
  = 515 {"text": "C:\\"}
  clock 1000
  type 515 "$FILES"
  leave
  clock 1000
  click 517
  state file
  = {"window": "file", "title": "Log files", "filters": ["Log files (*.txt;*.log)"]}
  file "$FILES\\spare.log"
  answer Yes
  state spare
  = 529 {"text": "~\\spare.log"}
  = 530 {"enabled": true}
  click 530
  state gone
  = 536 {"enabled": false}
  = 530 {"enabled": false}
  # The ENTER key, with the field not left.
  type 529 "$FILES\\log.txt"
  key ENTER
  ok
= {"/acts/0": {"kind": "open", "what": "~\\log.txt"}, "/acts/1/what": "~\\one.prn"}
= {"/acts/2/what": "~\\one.prn", "/acts/3/what": "~\\two.prn", "/acts/4": null}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings\Logging"
= {"/values/Logging": {"type": 3, "data": "01"}}
= {"/values/Print Code Recording": {"type": 3, "data": "01"}}
= {"/values/Overwrite Files": {"type": 3, "data": "01"}}
jobs Dock3
= {"/0/name": "one.prn", "/1/name": "two.prn", "/2": null}

# With restricted rights files are viewed one at a time and sent, and nothing can be changed.
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings" "Local Access Level" 3 04000000
sheet Dock3 --device
  page "Tools"
  click 617
  state restricted
  = 529 {"text": "~\\log.txt", "enabled": false}
  = 531 {"checked": 1, "enabled": false}
  = 515 {"enabled": false}
  = 532 {"enabled": false}
  = 528 {"enabled": true}
  = 684 {"enabled": true}
  = 527 {"items": ["one.prn", "two.prn"], "enabled": true}
  = 536 {"enabled": true}
  = 530 {"enabled": false}
  = 526 {"enabled": false}
  select 527 "one.prn"
  state one
  = 533 {"enabled": true}
  = 534 {"enabled": true}
  = 525 {"enabled": false}
  select 527 "one.prn" "two.prn"
  state two
  = 533 {"enabled": false}
  = 534 {"enabled": true}
  ok
  cancel
registry delete "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings" "Local Access Level"

# Recordings that have gone are named in a message and not sent.
sheet Dock3 --device
  page "Tools"
  click 617
  type 529 "$FILES\\two.prn"
  select 527 "one.prn" "two.prn"
  click 530
  click 534
  state unread
  = {"window": "message", "title": "Logging", "text": "~cannot be read and were not sent:\n"}
  = {"text": "~\\two.prn", "buttons": ["OK"]}
  = {"text": "!~one.prn"}
  answer OK
  clock 1000
  state one
  = 527 {"items": ["one.prn"], "selection": [0]}
  click 526
  state empty
  = 527 {"items": []}
  = 526 {"enabled": false}
  cancel
  cancel
jobs Dock3
= {"/2/name": "one.prn", "/3": null}

# A printer of another machine, here of this one under another name: only the settings.
connect "\\SHOP\Dock3" --server $DIR
sheet "\\SHOP\Dock3" --device
  page "Tools"
  click 617
  state remote
  = {"title": "Logging"}
  = 531 {"checked": 1}
  = 513 {"checked": 1}
  = 519 {"checked": 1, "enabled": true}
  = 529 {"text": "~\\log.txt", "enabled": true}
  = 515 {"text": "~Z:", "enabled": true}
  check 519 off
  type 515 "C:\\Label Files"
  check 513 off
  check 531 off
  state off
  = 529 {"enabled": false}
  = 515 {"text": "C:\\Label Files", "enabled": false}
  = 519 {"enabled": false}
  ok
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings\Logging"
= {"/values/Logging/data": "00", "/values/Print Code Recording/data": "00"}
= {"/values/Overwrite Files/data": "00", "/values/Directory": {"type": 1}}
