# The sheets of a printer whose driver has lost its files: they tell no lies and change nothing.
native
install Dock3 --model "Valdrick X4 300 dpi"
lose zplvenu.dll
sheet Dock3 --defaults
= {"/result": "cancel"}
sheet Dock3 --device
= {"/result": "cancel"}
lose zplqv.ddt
sheet Dock3 --defaults
! 1 "error 122"
sheet Dock3 --device
= {"/result": "cancel"}
