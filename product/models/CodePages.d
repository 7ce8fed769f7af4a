! The code pages in which the printer accepts text, by the number in its character set command.

[.default]
CodePages=1252

[Zpl]
CodePages=1252,1250,1251,1253,1254,1255,1256,1257,1258,874
