// The pages of a sheet that does not exist yet.
#pragma once

#include <windows.h>

#include "core/oarray.h"
#include "core/ostring_array.h"

// Names of templates in the language libraries, each with its dialog procedure, in the order in
// which they were added. Indices start at 0 and are not checked.
class PageList {
public:
    // False without memory; the list is then unchanged.
    bool Add(const OString& name, DLGPROC procedure) {
        const int place = GetSize();
        if (!names_.SetAtGrow(place, name)) return false;
        if (procedures_.Add(procedure) >= 0) return true;
        names_.RemoveAt(place, 1);
        return false;
    }
    void Clear() {
        names_.SetSize(0);
        procedures_.SetSize(0);
    }

    int GetSize() const { return procedures_.GetSize(); }
    const OString& GetName(int index) const { return names_[index]; }
    DLGPROC GetProcedure(int index) const { return procedures_[index]; }

private:
    OStringArray names_;
    OTypedArray<DLGPROC> procedures_;
};
