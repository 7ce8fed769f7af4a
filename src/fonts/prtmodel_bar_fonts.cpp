// The printer model: installing its bar code and RFID fonts.
#include "fonts/data_font_manager.h"
#include "model/prtmodel.h"
#include "settings/install_defaults.h"

void prtmodel::InstallDefault_BarFonts() {
    DataFontManager fonts;
    InstallDefaults(fonts, *this, [&](OFile& file) {
        fonts.ImportBarFont(file, this);
        fonts.ImportRFID(file, this);
    });
}
