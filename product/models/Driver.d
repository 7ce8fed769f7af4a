! One section per printer, named like its driver. It says where the facts of its manufacturer and
! the tables of its model are. A second brand sells some of the printers under its own driver names.

[.default]
Manufacturer=Manufacturer:Valdrick

[Valdrick D4 203 dpi]
Model=Model:Desktop203

[Valdrick D4 300 dpi]
Model=Model:Desktop300

[Valdrick X4 203 dpi]
Model=Model:Industrial203

[Valdrick X4 300 dpi]
Model=Model:Industrial300

[Valdrick X4 600 dpi]
Model=Model:Industrial600

[Valdrick M2 Mobile]
Model=Model:Mobile203

[Valdrick R4 RFID]
Model=Model:Rfid203

[Valdrick P4 PPLZ]
Model=Model:Pplz203

[Valdrick C4 Spot Color]
Model=Model:Spot300

[Valdrick J2 Center]
Model=Model:Center300

[TT D4 203 dpi]
Model=Model:Desktop203

[TT X4 203 dpi]
Model=Model:Industrial203

[TT X4 300 dpi]
Model=Model:Industrial300
