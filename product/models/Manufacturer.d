! Names that the driver shows. The fonts of every brand carry the language's prefix.

[Valdrick]
CompanyName=Valdrick
ProductName=Valdrick Label Printer Driver
Fonts.Prefix=ZPL
CompanyName(TT)=TT
ProductName(TT)=TT Label Printer Driver
