#include "model/code_page_list.h"

#include "core/locale_utility.h"
#include "core/memory.h"

CodePage::CodePage(uint16_t number)
    : code_page(number)
    , listed_as(number)
    , multi_byte(LocaleUtility::IsMultiByteCodePage(number))
    , utf8(number == 1208) {
    name << number;
}

ONode* CodePageList::NewNode() {
    return new (kCounted) CodePage;
}

void CodePageList::Enumerate() {
    static constexpr uint16_t kCodePages[] = {1252, 1250, 1251, 1253, 1254, 1255, 1256, 1257,
                                              1258, 874,  932,  936,  950,  949,  1361};
    for (uint16_t number : kCodePages) AddTail(new (kCounted) CodePage(number));
}
