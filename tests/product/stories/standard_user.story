# People who may look at a printer, and print, but change nothing of it.
native
install Dock3 --model "Valdrick X4 300 dpi"
--standard-user sheet Dock3 --device
  state general
  = 3001 {"readonly": true}
  # The options of a bar code as well.
  page "Fonts"
  double 801 "Barcode Code 93"
  state options
  = 2008 {"enabled": false}
  cancel
  page "Tools"
  state tools
  = 611 {"enabled": true}
  = 612 {"enabled": true}
  = 614 {"enabled": false}
  = 615 {"enabled": false}
  = 616 {"enabled": false}
  = 617 {"enabled": true}
  page "About"
  state about
  = 110 {"enabled": true}
  = 111 {"enabled": true}
  ok
= {"/result": "ok"}
# Documents are theirs.
--standard-user sheet Dock3 --document --out $DIR/document
  page "Options"
  click 1201
  click 1203
  slide 1204 20
  ok
document Dock3 --in $DIR/document
= {"/configuration/absolute_darkness": 20}

# The printer's own options are only shown.
--standard-user sheet Dock3 --device
  page "Tools"
  menu 613 28711
  state
  = 1231 {"enabled": false}
  = 1232 {"enabled": false}
  = 1233 {"enabled": false}
  = 1234 {"enabled": false}
  ok
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings"
= {"/values/Reprint After Error": null}
