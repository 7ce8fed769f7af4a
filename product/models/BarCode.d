! The bar codes that the printer draws itself, each with the options of its ZPL command. A symbology
! that is not listed, or set to no, is drawn by the driver instead.

[.default]
Code39=yes
Code39.FullASCII=yes
Code39.StartStop.Required=yes
Code39.Ratio=Variable,2:1,5:2,3:1
Code39.HR=On,Off
Code39.HR.Placement=Above,Below
Code39.HR.Alignment=Center
Code39.HR.CheckDigit=Show
Code39.HR.StartStop=Show
Code39.HR.Translation=Off

Code93=yes
Code93.FullASCII=yes
Code93.HR=On,Off
Code93.HR.Placement=Above,Below
Code93.HR.Alignment=Center
Code93.HR.CheckDigit=Hide

Code128=yes
Code128.Encoding=Auto,Manual
Code128.HR=On,Off
Code128.HR.Placement=Above,Below
Code128.HR.Alignment=Center

Codabar=yes
Codabar.StartStop.Required=yes
Codabar.StartStop.Uppercase=yes
Codabar.Ratio=Variable,2:1,5:2,3:1
Codabar.HR=On,Off
Codabar.HR.Placement=Above,Below
Codabar.HR.Alignment=Center
Codabar.HR.StartStop=Show

I-2/5=yes
I-2/5.Ratio=Variable,2:1,5:2,3:1
I-2/5.HR=On,Off
I-2/5.HR.Placement=Above,Below
I-2/5.HR.Alignment=Center
I-2/5.HR.CheckDigit=Show

MSI=yes
MSI.Ratio=Variable,2:1,5:2,3:1
MSI.HR=On,Off
MSI.HR.Placement=Above,Below
MSI.HR.Alignment=Center
MSI.HR.CheckDigit=Show,Hide

UPC-A=yes
UPC-A.CheckDigit.Required=yes
UPC-A.SplitDigit=Small
UPC-A.HR=On,Off
UPC-A.HR.Placement=Above,Below
UPC-A.HR.Alignment=Bar
UPC-A.HR.CheckDigit=Show

UPC-E=yes
UPC-E.CheckDigit.Required=yes
UPC-E.NumberSystem=0,1
UPC-E.SplitDigit=Small
UPC-E.HR=On,Off
UPC-E.HR.Placement=Above,Below
UPC-E.HR.Alignment=Bar
UPC-E.HR.CheckDigit=Show

EAN-13=yes
EAN-13.CheckDigit.Required=yes
EAN-13.SplitDigit=Full
EAN-13.HR=On,Off
EAN-13.HR.Placement=Above,Below
EAN-13.HR.Alignment=Bar
EAN-13.HR.CheckDigit=Show

EAN-8=yes
EAN-8.CheckDigit.Required=yes
EAN-8.SplitDigit=None
EAN-8.HR=On,Off
EAN-8.HR.Placement=Above,Below
EAN-8.HR.Alignment=Bar
EAN-8.HR.CheckDigit=Show

Supplemental2=yes
Supplemental2.HR=On,Off
Supplemental2.HR.Placement=Above,Below
Supplemental2.HR.Alignment=Bar

Supplemental5=yes
Supplemental5.HR=On,Off
Supplemental5.HR.Placement=Above,Below
Supplemental5.HR.Alignment=Bar

Postnet=yes
Postnet.HR=On,Off
Postnet.HR.Placement=Above,Below
Postnet.HR.Alignment=Center

Planet=yes
Planet.HR=On,Off
Planet.HR.Placement=Above,Below
Planet.HR.Alignment=Center

Code11=yes
Code11.Ratio=Variable,2:1,5:2,3:1
Code11.HR=On,Off
Code11.HR.Placement=Above,Below
Code11.HR.Alignment=Center
Code11.HR.CheckDigit=Show

Code49=yes
Code49.HR=On,Off
Code49.HR.Placement=Above,Below
Code49.HR.Alignment=Center

Codablock=yes
Codablock.Type=A,E,F
Codablock.HR=Off

PDF417=yes
PDF417.Truncated=yes
PDF417.CorrectionLevel=Auto,0,1,2,3,4,5,6,7,8
PDF417.Columns=Auto,Manual

MicroPDF417=yes
MicroPDF417.Size=Manual

DataMatrix=yes
DataMatrix.ECC=000,050,080,100,140,200
DataMatrix.Rectangle=Manual
DataMatrix.FormatID=Auto,Manual

MaxiCode=yes
MaxiCode.Mode=2,3,4,5,6
MaxiCode.StructuredAppend=yes

QRCode=yes
QRCode.Model=1,2
QRCode.Mode=Manual,Auto
QRCode.Mask=Auto
QRCode.StructuredAppend=yes

Aztec=yes
Aztec.FinderPattern=Auto,Compact,Full
Aztec.ErrorCorrection=Auto,Manual
Aztec.Layers=Auto,Manual
Aztec.StructuredAppend=yes

RSS=yes
RSS.Type=RSS14,Truncated,Stacked,Omnidirectional,Limited,Expanded
RSS.SegmentsPerRow=Auto,Manual
RSS.HR=Off

Composite=yes
Composite.Type=RSS14,Truncated,Stacked,Omnidirectional,Limited,Expanded,EAN8,EAN13,UPCA,UPCE,128_CC_AB,128_CC_C
Composite.SegmentsPerRow=Auto,Manual
Composite.HR=Off

[Zpl]

! The emulation knows the common symbologies and fewer of their options.

[Pplz]
Code128.Encoding=Auto
Code11=no
Code49=no
Codablock=no
MicroPDF417=no
Aztec=no
RSS=no
Composite=no
Planet=no
DataMatrix.ECC=200
DataMatrix.Rectangle=No
MaxiCode.StructuredAppend=no
QRCode.Model=2
QRCode.StructuredAppend=no
