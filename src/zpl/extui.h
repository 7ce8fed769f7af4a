// The UI object of ZPL II printers.
#pragma once

#include "driver/prtui.h"
#include "zpl/extstream.h"

class extui : public prtui {
public:
    // Made by prtui::new_ext.
    extui() = default;
    // The stream goes first: what it still holds is sent while the printer is known.
    ~extui() override;

    void InitEx() override;

private:
    extstream stream_;
};
