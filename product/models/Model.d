! The printers: media limits, resolutions, colour, ports, and which section of every other table
! belongs to each. A value without a table name before the colon would refer to this table.

[.default]
Drawing=Drawing:Zpl
Method=Method:Zpl
Font=Font:Standard
BarCode=BarCode:Zpl
Features=Features:Desktop
~CustomData=~CustomData:Desktop203
Stock.Tracking=Left
Stock.UnprintableWidth=1 mm
Stock.Default.X=4 in
Stock.Default.Y=6 in
Ports.Bidirectional=Parallel,USB
Color=no
~ArgoxPPLZ=no

! 4-inch desktop printers, direct thermal only.

[Desktop203]
Resolution=203
Stock.Printable.X=104 mm
Stock.Printable.Y=991 mm
Stock.Default.Y=3 in
Stock.Minimum.X=19 mm
Stock.Minimum.Y=6.4 mm
Stock.Maximum.X=108 mm
Stock.Maximum.Y=991 mm
Ports.Bidirectional=USB
Ports.PNP.ID=ValdrickD4_203
Ports.PNP.ID(TT)=TTD4_203
Features=Features:Desktop
~CustomData=~CustomData:Desktop203

[Desktop300]
Resolution=300
Stock.Printable.X=105.7 mm
Stock.Printable.Y=558 mm
Stock.Default.Y=3 in
Stock.Minimum.X=19 mm
Stock.Minimum.Y=6.4 mm
Stock.Maximum.X=108 mm
Stock.Maximum.Y=558 mm
Ports.Bidirectional=USB
Ports.PNP.ID=ValdrickD4_300
Features=Features:Desktop
~CustomData=~CustomData:Desktop300

! The industrial printer with each of its print heads.

[Industrial203]
Resolution=203
Stock.Printable.X=104 mm
Stock.Printable.Y=3988 mm
Stock.Minimum.X=20 mm
Stock.Minimum.Y=6 mm
Stock.Maximum.X=114 mm
Stock.Maximum.Y=3988 mm
Ports.PNP.ID=ValdrickX4_203,ValdrickX4
Ports.PNP.ID(TT)=TTX4_203
Features=Features:Industrial
Font=Font:Industrial
~CustomData=~CustomData:Industrial203

[Industrial300]
Resolution=300
Stock.Printable.X=104 mm
Stock.Printable.Y=1854 mm
Stock.Minimum.X=20 mm
Stock.Minimum.Y=6 mm
Stock.Maximum.X=114 mm
Stock.Maximum.Y=1854 mm
Ports.PNP.ID=ValdrickX4_300
Ports.PNP.ID(TT)=TTX4_300
Features=Features:Industrial
Font=Font:Industrial
~CustomData=~CustomData:Industrial300

[Industrial600]
Resolution=600,300
Stock.UnprintableWidth=0.5 mm
Stock.Printable.X=104 mm
Stock.Printable.Y=991 mm
Stock.Default.X=3 in
Stock.Default.Y=2 in
Stock.Minimum.X=20 mm
Stock.Minimum.Y=3 mm
Stock.Maximum.X=114 mm
Stock.Maximum.Y=991 mm
Ports.PNP.ID=ValdrickX4_600
Features=Features:Industrial
Font=Font:Industrial
~CustomData=~CustomData:Industrial600

! A belt printer with a battery.

[Mobile203]
Resolution=203
Stock.UnprintableWidth=1.5 mm
Stock.Printable.X=48 mm
Stock.Printable.Y=813 mm
Stock.Default.X=2 in
Stock.Default.Y=1 in
Stock.Minimum.X=25.4 mm
Stock.Minimum.Y=12.7 mm
Stock.Maximum.X=55 mm
Stock.Maximum.Y=813 mm
Ports.Bidirectional=USB
Ports.PNP.ID=ValdrickM2
Features=Features:Mobile
~CustomData=~CustomData:Mobile203

! Prints and encodes transponder labels.

[Rfid203]
Resolution=203
Stock.Printable.X=104 mm
Stock.Printable.Y=991 mm
Stock.Minimum.X=20 mm
Stock.Minimum.Y=16 mm
Stock.Maximum.X=114 mm
Stock.Maximum.Y=991 mm
Ports.PNP.ID=ValdrickR4
Features=Features:Industrial
Font=Font:Industrial
~CustomData=~CustomData:Industrial203
~RFID.TagTypes=EPC64,EPC96,ISO15693,TagIt,ICode1,Picotag

! Speaks an emulation of ZPL that lacks some of its commands.

[Pplz203]
Resolution=203
Stock.Printable.X=104 mm
Stock.Printable.Y=1270 mm
Stock.Minimum.X=25.4 mm
Stock.Minimum.Y=5 mm
Stock.Maximum.X=110 mm
Stock.Maximum.Y=1270 mm
Ports.Bidirectional=
Ports.PNP.ID=ValdrickP4
Drawing=Drawing:Pplz
Method=Method:Pplz
BarCode=BarCode:Pplz
Features=Features:Pplz
Font=Font:Pplz
~CustomData=~CustomData:Pplz203
~ArgoxPPLZ=yes

! Four print heads, one ink ribbon each.

[Spot300]
Resolution=300
Stock.Printable.X=104 mm
Stock.Printable.Y=610 mm
Stock.Minimum.X=38 mm
Stock.Minimum.Y=25 mm
Stock.Maximum.X=114 mm
Stock.Maximum.Y=610 mm
Color=yes
Color.Spot=2,3,4
Color.Process=CMY,CMYK
Color.DefaultState=Color
Ports.PNP.ID=ValdrickC4
Drawing=Drawing:Spot
Features=Features:Industrial
Font=Font:Industrial
~CustomData=~CustomData:Spot300

! A narrow printer for jewellery and pipe labels: the web runs in the middle of the head.

[Center300]
Resolution=300
Stock.Tracking=Center
Stock.UnprintableWidth=0
Stock.Printable.X=54 mm
Stock.Printable.Y=508 mm
Stock.Default.X=54 mm
Stock.Default.Y=20 mm
Stock.Minimum.X=15 mm
Stock.Minimum.Y=5 mm
Stock.Maximum.X=60 mm
Stock.Maximum.Y=508 mm
Ports.Bidirectional=USB
Ports.PNP.ID=ValdrickJ2
Drawing=Drawing:Center
Features=Features:Desktop
~CustomData=~CustomData:Center300
