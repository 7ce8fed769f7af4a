// The printer model: answers about its stocks, and installing them.
#include <windows.h>

#include "model/prtmodel.h"
#include "settings/install_defaults.h"
#include "settings/stock_list.h"

uint32_t prtmodel::EnumerateForms(uint16_t capability, unsigned char* output) const {
    StockList stocks(this);
    stocks.Load(this);
    void* const items = output;
    switch (capability) {
    case DC_PAPERS:
        return static_cast<uint32_t>(stocks.enum_paper_id(static_cast<uint16_t*>(items)));
    case DC_PAPERSIZE:
        return static_cast<uint32_t>(stocks.enum_paper_size(static_cast<POINT*>(items)));
    default:
        return static_cast<uint32_t>(stocks.enum_paper_name(static_cast<WCHAR*>(items)));
    }
}

void prtmodel::InstallDefault_Stocks() {
    StockList stocks(this);
    InstallDefaults(stocks, *this, [&](OFile& file) { stocks.Import(file, 0); });
}
