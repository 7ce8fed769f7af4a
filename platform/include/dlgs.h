// Identifiers of the controls in the system's dialogs.
#pragma once

#define chx1 0x0410 // read-only
#define pshHelp 0x040e
#define stc1 0x0440 // labels
#define stc2 0x0441
#define stc3 0x0442
#define stc4 0x0443
#define stc5 0x0444
#define stc6 0x0445
#define grp2 0x0431
#define lst1 0x0460 // files
#define cmb1 0x0470 // the filter; in the font dialog family, style and size
#define cmb2 0x0471 // the folder
#define cmb3 0x0472
#define cmb5 0x0474 // scripts
#define cmb13 0x047c
#define edt1 0x0480 // the file's name
