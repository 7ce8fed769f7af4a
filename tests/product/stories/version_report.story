# The report that people send when they ask for support: its tabs, its buttons and what it remembers.
install Dock3 --model "Valdrick X4 300 dpi"
registry set "HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\Story" DisplayName 1 460069006e00650020004c006100620065006c0073002000260020006d006f00720065000000
registry set "HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\Unnamed" Publisher 1 4e006f0062006f00640079000000

sheet Dock3 --document
  page "About"
  click 111
  state driver
  = {"window": "dialog", "title": "Driver Information"}
  = 1017 {"items": ["Driver", "System", "Software", "Ports", "Printers", "Specifications", "Label Sizes", "Bar Codes", "Settings"], "selection": [0]}
  = 1020 {"readonly": true, "text": "~Made for:\tWindows 2000, XP"}
  choose 1017 "System"
  state system
  = 1020 {"text": "~Windows folder:\tC:\\", "caret": [0, 0]}
  choose 1017 "Software"
  state software
  = 1020 {"text": "~Fine Labels & more", "caret": [0, 0]}
  state no_name
  = 1020 {"text": "!~Nobody"}
  choose 1017 "Printers"
  state printers
  = 1020 {"text": "~Configuration file:\tzplui.dll"}
  choose 1017 "Specifications"
  state specifications
  = 1020 {"text": "~Horizontal resolution:\t300 dpi"}
  choose 1017 "Label Sizes"
  state sizes
  = 1020 {"text": "~Liner at the left:\t"}
  choose 1017 "Bar Codes"
  state bar_codes
  = 1020 {"text": "~ECC:\t000, 050, 080, 100, 140, 200"}
  choose 1017 "Settings"
  state settings
  = 1020 {"text": "Printer:\tDock3\r\nPort:\tFILE:\r\n\r\nPort information:\tNot available"}
  # What is marked in a tab stays marked there until the report is made again.
  choose 1017 "System"
  key SHIFT+TAB
  state entered
  = {"focus": 1020}
  key CTRL+HOME
  key SHIFT+DOWN
  state marked
  = 1020 {"caret": [0, 17]}
  choose 1017 "Specifications"
  state elsewhere
  = 1020 {"caret": [0, 0]}
  choose 1017 "System"
  state again
  = 1020 {"caret": [0, 17]}
  click 1016
  state refreshed
  = 1017 {"selection": [1]}
  = 1020 {"text": "~Operating system", "caret": [0, 0]}
  click 618
  state save
  = {"window": "file", "title": "Save Report", "filters": 3, "filter": 0}
  file
  state not_saved
  = {"title": "Driver Information"}
  click 618
  file "$FILES\\report"
  click 618
  file "$FILES\\report"
  state replace
  = {"window": "message"}
  answer Yes
  state saved
  = {"title": "Driver Information"}
  cancel
  state about
  = {"title": "About", "apply": false}
  cancel
= {"/result": "cancel"}

sheet Dock3 --version-report "$DIR/report.RTF"
= {"/version_report": "~report.RTF", "/states": 0}
sheet Dock3 --device --version-report "$DIR/report.htm"
sheet Dock3 --version-report "$DIR/report"
! 2 "report' has to end in .html, .htm, .rtf or .txt"
sheet Dock3 --version-report "$DIR/none/report.txt"
! 1 "cannot write version report"

# The specifications that somebody has set.
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings\Specifications" Override 3 01
sheet Dock3 --device
  page "About"
  click 111
  choose 1017 "Specifications"
  state
  = 1020 {"text": "~Printer (changed from those of the model)\r\n\r\nMedia alignment:\t"}

registry delete "HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\Story"
registry delete "HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\Unnamed"
