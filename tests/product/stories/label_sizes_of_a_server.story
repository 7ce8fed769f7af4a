# A connection to another machine's printer shows which label sizes are the server's.
native
--root $DIR/warehouse install Dock3 --model "Valdrick X4 300 dpi"
--root $DIR/warehouse registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes" "Form 01: Name" 1 4c006f0061006e000000
--root $DIR/warehouse registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes" "Form 01: Data" 3 50c30000a8610000f6040000f604000000000000000000000c000000
--root $DIR/warehouse registry set "HKLM\SOFTWARE\Valdrick\Drivers\Paper Sizes" Total 4 01000000
connect \\WAREHOUSE\Dock3 --server $DIR/warehouse

sheet \\WAREHOUSE\Dock3 --defaults
  choose 512 #26
  state
  = 512 {"text": "Loan (1.97 in x 0.98 in) @ WAREHOUSE"}
  = 383 {"enabled": false}
  choose 512 #1
  state
  = 383 {"enabled": true}
  click 391
  type 389 "Shelf"
  ok
  ok
--root $DIR/warehouse sheet Dock3 --defaults
  state
  = 512 {"items": {"28": "Shelf (1.00 in x 0.50 in)"}}
