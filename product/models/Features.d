! What a printer can do besides printing, and where it stores objects. R is every printer's working
! memory and is always offered; the list has the other memories.

[.default]
~Options.Power=no
~Mode.Applicator=no
~Mode.PeelOff=no
~Command.JB=yes
~Command.HH=yes
~Memory.DefaultLocation=R
~Memory.Options=E

[Desktop]
~Mode.PeelOff=yes

[Industrial]
~Mode.Applicator=yes
~Mode.PeelOff=yes
~Memory.Options=E,B,A

[Mobile]
~Options.Power=yes
~Mode.PeelOff=yes

[Pplz]
~Command.JB=no
~Command.HH=no
~Memory.Options=
