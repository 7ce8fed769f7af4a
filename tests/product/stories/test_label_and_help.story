# The device sheet prints a test label, and the pages know their help.
install Dock3 --model "Valdrick X4 300 dpi"
sheet Dock3 --device
  state first
  = {"page": 0, "apply": false}
  = 3007 {"enabled": true}
  page "About"
  click 110
  help
  ok
= {"/result": "ok", "/acts": 2}
= {"/acts/0/kind": "help", "/acts/0/parameters": "/base/License.html"}
= {"/acts/1/parameters": "/base/Introduction.html"}

sheet Nowhere --device
! 1 "Nowhere"
