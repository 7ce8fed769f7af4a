# The sheets of a printer whose driver has lost its files: they tell no lies and change nothing.
native
install Dock3 --model "Valdrick X4 300 dpi"
# Without the texts there are only the pages of the system.
lose zplvenu.dll
sheet Dock3 --defaults
! 1 "error"
sheet Dock3 --device
= {"/result": "cancel"}
# Without the models, too.
lose zplqv.ddt
sheet Dock3 --defaults
! 1 "error 122"
sheet Dock3 --device
= {"/result": "cancel"}
