# Commands are coloured while they are typed, which Wine's control does not allow.
native
install Dock3 --model "Valdrick X4 300 dpi"
sheet Dock3
  click 506
  type 494 "^"
  state
  = 494 {"colors": [[0, 1, "e00000"]]}
  key LEFT
  key DELETE
  type 494 "a^XA\n^#1"
  state
  = 494 {"caret": [8, 8], "colors": [[0, 1, "000000"], [1, 3, "e00000"], [3, 5, "000000"], [5, 8, "e00000"]]}
  key BACKSPACE
  key BACKSPACE
  state
  = 494 {"caret": [6, 6], "colors": [[0, 1, "000000"], [1, 3, "e00000"], [3, 5, "000000"], [5, 6, "e00000"]]}
  cancel
  cancel
