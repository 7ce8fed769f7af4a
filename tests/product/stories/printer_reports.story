# What a printer says about itself: the report, and the battery. Not for Windows, because Wine has no
# ports of the network that can answer.
native
emulator
install Mob --model "Valdrick M2 Mobile" --port $EMULATOR

sheet Mob --device
  page "Tools"
  menu 612 28709
  state
  = {"window": "dialog", "title": "Information", "focus": 1020}
  = 1017 {"items": ["Printer", "Communication", "Memory", "Settings", "Configuration", "Status", "Files"], "selection": [0]}
  = 1020 {"text": "~Model:\tEMULATED-203\r\nVersion:\tV1.0.0\r\n", "readonly": true, "caret": [78, 78]}
  choose 1017 #1
  state
  = 1020 {"text": "Serial\r\n\r\nBaud:\t9600\r\nHandshaking:\tXon/Xoff\r\nParity:\tNone\r\nStop Bits:\t1\r\nData Bits:\t8"}
  choose 1017 #4
  key TAB
  click 1016
  state
  = 1017 {"selection": [4]}
  = 1020 {"text": "~DARKNESS:\t10\r\nPRINT SPEED:\t6 IPS\r\n"}
  click 618
  state
  = {"window": "file", "title": "Save Report", "filters": ["Web page (*.html)", "Rich text (*.rtf)", "Text (*.txt)"]}
  file
  click 618
  file "$FILES\\report.html"
  click 618
  file "$FILES\\report.rtf"
  click 618
  file "$FILES\\report.txt"
  cancel
saved report.html printer_report.html
saved report.rtf printer_report.rtf
saved report.txt printer_report.txt

# The battery. What is set is stored with OK and sent; a discharge at once.
sheet Mob --device
  page "Tools"
  menu 613 28718
  state
  = {"title": "Power Management"}
  = 1241 {"text": "15.60", "readonly": true}
  = 1242 {"text": "15.38", "readonly": true}
  = 1243 {"text": "27", "readonly": true}
  = 1244 {"checked": 0}
  = 1245 {"text": "1"}
  = 1246 {"checked": 0}
  = 1247 {"checked": 1}
  check 1244 on
  type 1245 "600"
  cancel
  menu 613 28718
  state
  = 1244 {"checked": 0}
  = 1245 {"text": "1"}
  click 1248
  check 1244 on
  check 1246 on
  check 1247 off
  type 1245 "90"
  help
  ok
  menu 613 28718
  state
  = 1244 {"checked": 1}
  = 1245 {"text": "90"}
  = 1246 {"checked": 1}
  = 1247 {"checked": 0}
= {"/acts/0/parameters": "/zpl/PowerManagement.html"}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Mob\PrinterDriverData\Settings"
= {"/values/Enable Sleep/data": "01", "/values/Low Voltage Pause/data": "00", "/values/Forced Sleep/data": "01", "/values/Timeout/data": "5a000000"}

# Answers that break off or do not come are left out.
file answers/faults
  HM short 3
  HH silent
  HW silent
sheet Mob --device
  page "Tools"
  menu 612 28709
  choose 1017 #2
  state
  = 1020 {"text": "~Total:\t\r\nAvailable:\t\r\nUsed:\t\r\n"}
  choose 1017 #5
  state
  = 1017 {"items": ["Printer", "Communication", "Memory", "Settings", "Status", "Files"]}
  = 1020 {"text": "Name\tSize\r\n\r\nNo files listed.\r\n\r\nSummary\r\n\r\nTotal Files:\t0\r\nMemory Used:\t0"}

# A printer that does not answer: its report is empty.
registry set "HKLM\SOFTWARE\Valdrick\Drivers\Status Monitor" "Answer Time Limit" 4 64000000
file answers/faults
  * silent
sheet Mob --device
  page "Tools"
  menu 613 28718
  state
  = {"window": "message", "title": "Power Management", "text": "The printer did not report the state of its battery.", "buttons": ["OK"], "icon": "warning"}
  answer OK
  state
  = {"window": "dialog", "title": "Power Management"}
  = 1241 {"text": ""}
  = 1242 {"text": ""}
  = 1243 {"text": ""}
  = 1244 {"checked": 1}
  cancel
  menu 612 28709
  state
  = 1017 {"items": []}
  = 1020 {"text": ""}
  click 618
  file "$FILES\\empty.txt"
  cancel
registry delete "HKLM\SOFTWARE\Valdrick\Drivers\Status Monitor" "Answer Time Limit"

# A printer without the command for its configuration.
install Plain --model "Valdrick P4 PPLZ" --port $EMULATOR
file answers/faults
sheet Plain --device
  page "Tools"
  menu 612 28709
  state
  = 1017 {"items": ["Printer", "Communication", "Memory", "Settings", "Status", "Files"]}
