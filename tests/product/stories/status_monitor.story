# How the printer is watched. The pages are for printers whose port the status monitor serves.
native
install Dock3 --model "Valdrick X4 300 dpi" --port IP_127.0.0.1:1

sheet Dock3 --device
  page "Tools"
  state tools
  = 615 {"enabled": true}
  click 615
  state fresh
  = {"title": "Monitoring", "sheet": "Status Monitor", "apply": false}
  = 621 {"checked": 0}
  = 622 {"checked": 0}
  = 623 {"checked": 1}
  = 624 {"checked": 0, "enabled": false}
  = 625 {"enabled": false}
  help
  # What is asked and how often matters only while the printer is watched.
  page "Communications"
  state unwatched
  = {"apply": false}
  = 631 {"enabled": false}
  = 632 {"enabled": false}
  = 633 {"enabled": false}
  help
  page "Monitoring"
  check 621 on
  state watched
  = {"apply": true}
  = 624 {"checked": 1, "enabled": true}
  = 625 {"checked": 0, "enabled": true}
  check 621 off
  state unchanged
  = {"apply": false}
  = 624 {"enabled": false}
  check 621 on
  check 622 on
  check 623 off
  check 624 off
  check 625 on
  click 626
  click 627
  page "Communications"
  state intervals
  = 631 {"enabled": true, "text": "30000"}
  = 632 {"enabled": true}
  = 633 {"enabled": true}
  # What is typed is kept within its limits, and shown so when the field is left.
  type 633 "50"
  state typed
  = 633 {"text": "50"}
  leave
  type 631 "700000"
  leave
  type 632 "499"
  leave
  state left
  = {"apply": true}
  = 631 {"text": "600000"}
  = 632 {"text": "500"}
  = 633 {"text": "100"}
  type 631 "1"
  leave
  type 632 "600001"
  leave
  type 633 "10001"
  leave
  state limits
  = 631 {"text": "500"}
  = 632 {"text": "600000"}
  = 633 {"text": "10000"}
  cancel
  cancel
= {"/acts/0/parameters": "/base/Status_Monitoring.html", "/acts/1/parameters": "/base/Status_Communications.html", "/acts/2": {"kind": "run", "what": "~rundll32.exe", "parameters": "~qstmon.dll,StatusMonitor open \"Dock3\""}, "/acts/3": {"parameters": "~qstmon.dll,StatusMonitor close \"Dock3\""}, "/acts/4": null}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/keys/Status/values/Monitor Status/data": "00", "/keys/Status/values/Show On Error": null, "/keys/Status/values/Query Interval": null}

sheet Dock3 --device
  page "Tools"
  click 615
  check 621 on
  check 622 on
  check 624 off
  check 625 on
  page "Communications"
  type 632 "1234"
  type 633 "567"
  apply
  state applied
  = {"apply": false}
  page "Monitoring"
  check 623 off
  ok
  # A sheet that is opened again shows what is stored.
  click 615
  state again
  = {"apply": false}
  = 621 {"checked": 1}
  = 622 {"checked": 1}
  = 623 {"checked": 0}
  = 624 {"checked": 0, "enabled": true}
  = 625 {"checked": 1}
  page "Communications"
  state again
  = 631 {"text": "30000"}
  = 632 {"text": "1234"}
  = 633 {"text": "567"}
  cancel
  cancel
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings\Status"
= {"/values/Monitor Status/data": "01", "/values/Show On Error/data": "01", "/values/System Tray Icon/data": "00", "/values/Query Before Job/data": "00", "/values/Verify Job Complete/data": "01", "/values/Job Complete Timeout/data": "d2040000", "/values/Query Interval/data": "37020000"}
