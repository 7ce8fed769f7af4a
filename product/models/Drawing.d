! What the printer draws itself, and how the page lies on the web.

[.default]
Transform.Orientation=0
Transform.Flip180=yes
Transform.Mirror=yes
Transform.Inverse=yes
Transform.MapResolution=0
Line=yes
Line.Color=no
Line.Diagonal=yes
Line.Thickness.Maximum=32000
Line.Thickness.Anchor=Edge
Line.Anchor=Top/Left
Box=yes
Box.Color=no
Box.Fill=yes
Box.Fill.Color=no
Box.Join=Mitered,Rounded
Box.Thickness.Maximum=32000
Box.Thickness.Anchor=Inner
Box.Anchor=Top/Left
Circle=yes
BarCode.Anchor=Top/Left
BarCode.Anchor.Relative=no
BarCode.DrawUnsupported.1D=Lines
BarCode.DrawUnsupported.2D=Graphic
Text.WhiteOnBlack.Background=yes
Text.Anchor=Baseline/Left
Text.Anchor.Relative=no
Text.Rotation=0,90,180,270
Text.Scaling=Anisotropic

[Zpl]

! The emulation has no mirror image, no diagonals and square corners only.

[Pplz]
Transform.Mirror=no
Line.Diagonal=no
Box.Join=Mitered
Circle=no
Line.Thickness.Maximum=9999
Box.Thickness.Maximum=9999
BarCode.DrawUnsupported.2D=Lines

[Spot]
Line.Color=yes
Box.Color=yes
Box.Fill.Color=yes

[Center]
Transform.Orientation=180
