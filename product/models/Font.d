! Resident fonts by group, what can be downloaded, and the fonts that new text starts with.

[.default]
Fonts=FontGroup:ZPL Bitmap.pfg,FontGroup:ZPL Scalable.pfg
CodePages=CodePages:Zpl
Download.TrueType=yes
Download.Bitmap=yes
Download.Bitmap.Orientation=0,90
DefaultFont.Text.Name=Font 0
DefaultFont.Text.Size=12
DefaultFont.Text.Weight=400
DefaultFont.BarCode.Name=Code 128
DefaultFont.BarCode.Size=36
DefaultFont.BarCode.Weight=400

[Standard]

[Industrial]
Fonts+=FontGroup:ZPL Asian.pfg

[Pplz]
Fonts=FontGroup:ZPL Bitmap.pfg
Download.TrueType=no
Download.Bitmap.Orientation=0
