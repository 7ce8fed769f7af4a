# A connection to another machine's printer shows which label sizes are the server's.
native
--root $DIR/warehouse install Dock3 --model "Valdrick X4 300 dpi" --port IP_127.0.0.1:1
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

# The server tells nothing to people who may not administer its printer. They have settings, and
# label sizes, of their own.
--standard-user connect \\WAREHOUSE\Dock3 --server $DIR/warehouse
--standard-user sheet \\WAREHOUSE\Dock3 --document
  state
  = 391 {"enabled": false}
  = 383 {"enabled": false}
  = 513 {"enabled": true}
  choose 512 #26
  state
  = 512 {"text": "Receipt 50 x 100 mm (1.97 in x 3.94 in)"}
  = 384 {"text": "&Edit..."}
