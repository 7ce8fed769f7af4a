# Label sizes of a server, and users who may not change the printer.
install Dock3 --model "Valdrick X4 300 dpi"
upgrade Dock3
registry set "HKCU\SOFTWARE\Valdrick\Drivers\Printers\Dock3\Settings" "Measurement System" 3 01000000
registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes" "Form 01: Name" 1 4c006f0061006e000000
registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes" "Form 01: Data" 3 50c30000a8610000f6040000f604000000000000000000000c000000
registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes" Total 4 01000000

# A server's size is looked at, not changed.
sheet Dock3 --defaults
  choose 512 #26
  state
  = 512 {"text": "~Loan (1.97 in x 0.98 in) @ "}
  = 383 {"enabled": false}
  click 384
  state
  = 389 {"enabled": false, "text": "Loan"}
  = 393 {"enabled": false, "text": "1.97 in"}
  = 386 {"enabled": false}
  = 388 {"enabled": false}
  = 392 {"enabled": false}
  ok
  # A size that is made from it belongs to the user.
  click 391
  state
  = 389 {"enabled": true, "text": "New Label"}
  = 393 {"enabled": true}
  ok
  state
  = 512 {"text": "New Label (1.97 in x 0.98 in)"}
  = 383 {"enabled": true}
  cancel

# The printer asks for more rights than anybody has.
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData\Settings" "Local Access Level" 3 04000000
sheet Dock3 --defaults
  state
  = 391 {"enabled": false}
  = 383 {"enabled": false}
  = 513 {"enabled": false}
  = 384 {"enabled": true, "text": "&Edit..."}
  = 512 {"enabled": true}
  = 514 {"enabled": true}
  # The user's own size is the user's.
  click 384
  state
  = 389 {"enabled": false}
  = 393 {"enabled": true}
  = 386 {"enabled": true}
  = 388 {"enabled": true}
  type 393 "2 in"
  ok
  state
  = 512 {"text": "USER (2.00 in x 6.00 in)"}
  choose 512 #13
  state
  = 384 {"text": "Vi&ew..."}
  = 383 {"enabled": false}
  click 384
  state
  = {"title": "Label Size"}
  = 389 {"enabled": false, "text": "4 x 6 in"}
  = 393 {"enabled": false}
  = 388 {"enabled": false}
  ok
  choose 514 "Draft"
  state
  = 384 {"text": "&Edit..."}
  = 391 {"enabled": false}
  = 513 {"enabled": false}
  cancel
