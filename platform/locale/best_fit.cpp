// Look-alikes: the characters that the system writes for those that a code page lacks.
//
// They are what WideCharToMultiByte answers for every character under Wine, whose tables are those
// of Windows. They are complete for single-byte code pages and 932. The other double-byte ones have
// many more (characters in circles, compatibility forms of ideographs and of Korean letters).
#include "locale/code_page.h"

#include <algorithm>
#include <iterator>

namespace win32host {
namespace {

// Characters, each followed by its look-alike, and the code pages that use them. A code page that
// has the character, or lacks the look-alike, skips the pair; the first pair counts.
struct LookAlikes {
    UINT code_pages[10];
    const char16_t* pairs;
};
constexpr LookAlikes kLookAlikes[] = {
    {{437, 850, 1250, 1251, 1252, 1253, 1254, 20127, 28591},
     u"\u00AD-ÀAÁAÂAÃAÄAÅAÇCÈEÉEÊEËEÌIÍIÎIÏIÑNÒOÓOÔOÕOÖOØOÙUÚUÛUÜUÝYàaáaâaãaäaåaçcèeéeêeëeìi"
     u"íiîiïiñnòoóoôoõoöoøoùuúuûuüuýyÿyĀAāaĂAăaĄAąaĆCćcĈCĉcĊCċcČCčcĎDďdđdĒEēeĔEĕeĖEėeĘEęeĚEěe"
     u"ĜGĝgĞGğgĠGġgĢGģgĤHĥhĦHħhĨIĩiĪIīiĬIĭiĮIįiİIĴJĵjĶKķkĹLĺlĻLļlĽLľlŁLłlŃNńnŅNņnŇNňnŌOōoŎOŏo"
     u"ŐOőoŔRŕrŖRŗrŘRřrŚSśsŜSŝsŞSşsŠSšsŢTţtŤTťtŦTŧtŨUũuŪUūuŬUŭuŮUůuŰUűuŲUųuŴWŵwŶYŷyŸYŹZźzŻZżz"
     u"ŽZžzƀbƗIƚlƟOƠOơoƫtƮTƯUưuǍAǎaǏIǐiǑOǒoǓUǔuǕUǖuǗUǘuǙUǚuǛUǜuǞAǟaǤGǥgǦGǧgǨKǩkǪOǫoǬOǭoǰj–-—-"
     u"’'“\"”\"•.….‹<›>™T"},
    {{437, 932, 949, 950, 1250, 1251, 1253, 20127},
     u"¬\uFFE2\u00AD-µμÀAÁAÂAÃAÄAÅAÇCÈEÉEÊEËEÌIÍIÎIÏIÑNÒOÓOÔOÕOÖOØOÙUÚUÛUÜUÝYàaáaâaãaäaåaçcèe"
     u"éeêeëeìiíiîiïiñnòoóoôoõoöoøoùuúuûuüuýyÿyβß⌂¦┐¬║¦╗¬╠¦╣¦╩¦■¦◘•♠¦♣¦♥¦♦¦㈱株㈲有㈹代㊤上"
     u"㊥中㊦下㊧左㊨右\uFA10塚\uFA12晴\uFA15凞\uFA17益\uFA19神\uFA1A祥\uFA1B福\uFA1C靖"
     u"\uFA1D精\uFA1E羽\uFA22諸\uFA25逸\uFA26都\uFA2A飯\uFA2B飼\uFA2C館\uFA2D鶴"},
    {{437, 850, 1250, 1252, 1254, 20127, 28591},
     u"¡!¢c¥Yªa²2³3¸,¹1ºoÆAæaıiŒOœoƒfɡgʺ\"ʼ'˄^ˆ^ˈ'ˍ_˜~\u0302^\u0331_\u0332_\u2000 \u2001 "
     u"\u2002 \u2003 \u2004 \u2005 \u2006 \u2010-\u2011-"},
    {{437, 850, 1250, 1252, 1254},
     u"ǃ!˚°βßμµһh։:\u066A%‰%⁄/⁴4⁵5⁶6⁷7₄4₅5₆6₇7₈8₉9ℂCℇEℊgℋHℌHℍHℎhℐIℑIℒLℓlℕN℘PℙPℚQℛRℜRℝRℤZℨZ"
     u"\u212AKℬBℭC℮eℯeℰEℱFℳMℴo−-∓±∕/∗*∘°∶:∼~≪«≫»⋅·⌂¦⌃^〈<〉>├+┼+║¦╠¦╣¦╬+■¦\u3000 〈<〉>《«》»"
     u"〚[・·"},
    {{1250, 1251, 1253, 1254},
     u"ĐDˊ´\u0301´\u0327¸‼!↑^↔-∟L┌-└L┘-├+┤+┬T┴+┼+═=╚L╝-╦T╬+▀-▄-█-░-▒-▓-▬-▲^►>◄<○0◙0☼0♀+♂>♪d♫d"},
    {{437, 850, 1252},
     u"Ƒƒ\u0303~\u0305¯\u030A°\u030E\"\u037E;ΓGΣSΦFΩOαaδdεeπpσsτtφfⁿn₀0₤£₧P\u212BÅ∞8∩n≡=≤=≥="
     u"⌐¬⌠(⌡)〛]"},
    {{1250, 1252, 1254}, u"ƶzǀ|ʹ'ˋ`\u0300`\u0308¨′'‵`⁰°⁸8∖\\∣|❘|"},
    {{932, 936, 949, 950}, u"¢\uFFE0£\uFFE1¦|ªa«≪²2³3¹1ºo»≫ÐDÞTþt"},
    {{1250, 1254}, u"ʻ‘․•←‹→›↕|↨|∙•─¦│-╔-❛‘❜’❝“❞”〟„ー—"},
    {{20127, 28591}, u"ĐDƉDƑFƶzʹ'ˋ`\u0300`\u0303~\u030E\"‘'‚,„\"′'‵`"},
    {{437},
     u"¤\017¦▌¨\"©c®r¯_´'¾_ÐD×xÞ_ðdþ_ĐDƉDƩΣƶzǀ|ɸφʹ'ˉ─ˊ'ˋ`\u0300`\u0301'\u0304─\u0308\"\u0327,"
     u"ΑαΔδΕεΠπΤτ‗_‘`‚,„,†+‡╪․·′'‵`⁰°⁸8₁1₂2₃3\u20DD\011\u2126Ω∅φ∑Σ∖\\∣|✓√❘|〇\011"},
    {{850},
     u"ĐDƉDƩSƶZǀ│ɸøʹ´ˉ─ˊ´ˋ'\u0300'\u0301´\u0304¯\u0308¨\u0327¸ΘØ‘'‚'„\"†┼‡╬․\007′´‵´⁰0⁸9₁¹₂²"
     u"₃³\u20DDO\u2126O∅Ø∑S∖/∙\007√V∣│≈~╒╔╓╔╕╗╖╗╘╚╙╚╛╝╜╝╞╠╟╠╡╣╢╣╤╦╥╦╧╩╨╩╪╬╫╬▌█▐█✓V❘│〇O"},
    {{874}, u"─ฤ│ณ┌\u0E3A┐ฟ└ภ┘\u0E39═อ║บ╔ษ╗ป╚ศ╝ผ▄\uF8C2"},
    {{1250},
     u"£L¯—¼1½1¾3ƉĐƑFˉŻ\u0303~\u0304Ż\u0305Ż\u0306˘\u0307˙\u030A°\u030Cˇ\u030E\"\u037E;″”₀0₁1"
     u"₂2₃3₤Ł\u212BĹ↓ˇ∅Ř▼ˇ☺˘☻˘〛]〝“〞”"},
    {{1251}, u"←<→>↓v↕¦↨¦∙•√v─-│¦╒-╓г╔г╕¬╖¬╘L╙L╛-╜-╞¦╟¦╡¦╢¦╤T╥T╧¦╨¦╪+╫+▌¦▐¦▼Ў☺O☻O"},
    {{1252},
     u"ĐÐƉÐˉ¯ˊ´\u0301´\u0304¯\u0327¸ΘT‗=․·₁1₂2₃3₡¢∅Ø∙·√v≈˜─-│¦┌+┐+└+┘+┤¦┬-┴-═-╒+╓+╔+╕+╖+╗+╘+"
     u"╙+╚+╛+╜+╝+╞¦╟¦╡¦╢¦╤-╥-╦-╧-╨-╩-╪+╫+▀¯▄_█¦▌¦▐¦░¦▒¦▓¦☼¤"},
    {{1253}, u"´/Ƒƒ\u030D΄\u037E;←<→>↓v↕¦↨¦─-│¦╔-▼΅☺O☻O"},
    {{1254},
     u"ƉDƑƒˇ^ˉ¯˘^˙'˛¸˝¨\u0303˜\u0304¯\u0305¯\u0306ˆ\u0307·\u030A§\u030Cˆ\u030E¨″¨₀°₁0₂²₃³₤£"
     u"\u212BÅ↓v∅Ø┐¬╗¬╩¦▼¡◘•☺O☻O♠¦♣¦♥¦♦¦〛=〝\"〞\""},
    {{1255}, u"¤₪ƑF"},
    {{1256},
     u"ÀAÂAÇCÈEÉEÊEËEÎIÏIÔOÙUÛUÜUƑF\u06600\u06611\u06622\u06633\u06644\u06655\u06666\u06677"
     u"\u06688\u06699\u06CC\u064A"},
    {{20127}, u"\u00A0 ¤$¦|©C«<®R·.»>ÐD"},
    {{936}, u"ÀàÁáÈèÉéÊêÌìÍíÒòÓóÙùÚúÜüðeĀāĒēĚěĪīŌōŪūǍǎǏǐǑǒǓǔÝYâaýy"},
    {{950}, u"¡!©c®RÆAßsæaðe"},
    {{932}, u"¡!¥\\©c®R¯\uFFE3·・¸\uFF0CÆAßsæaðdゔヴ"},
};

// The pictures that the first personal computers showed for the control codes from 1 on.
constexpr char16_t kPictures[] = u"☺☻♥♦♣♠•◘○◙♂♀♪♫☼►◄↕‼¶§▬↨↑↓→←∟↔▲▼";
constexpr char16_t kPictureOfDelete = u'⌂';

bool HasPictures(UINT code_page) {
    return code_page == 437 || code_page == 850 || code_page == 874;
}

// Shapes of Arabic letters of other languages: the first shape, the number of shapes, and the
// letter.
struct Shapes {
    char16_t first;
    int count;
    char16_t letter;
};
constexpr Shapes kShapes[] = {
    {0xFB56, 4, 0x067E}, {0xFB66, 4, 0x0679}, {0xFB7A, 4, 0x0686}, {0xFB88, 2, 0x0688},
    {0xFB8A, 2, 0x0698}, {0xFB8C, 2, 0x0691}, {0xFB8E, 4, 0x06A9}, {0xFB92, 4, 0x06AF},
    {0xFB9E, 2, 0x06BA}, {0xFBA6, 4, 0x06C1}, {0xFBAA, 4, 0x06BE}, {0xFBAE, 2, 0x06D2},
};

// How many shapes a letter of the Arabic alphabet has.
int ShapesOf(char16_t letter) {
    if (letter == 0x0621) return 1;
    // These are never joined to the next letter.
    for (const char16_t open : u"\u0622\u0623\u0624\u0625\u0627\u0629\u062F\u0630\u0631\u0632"
                               u"\u0648\u0649")
        if (letter == open) return 2;
    return 4;
}

} // namespace

void CodePageTable::FillBestFit() {
    if (HasPictures(info_.number)) {
        for (WORD code = 1; kPictures[code - 1]; ++code) DefineBestFit(kPictures[code - 1], code);
        DefineBestFit(kPictureOfDelete, 0x7F);
    }
    for (WORD c = 0x21; c < 0x7F; ++c) // full width; a question mark is the default anyway
        if (c != '?') DefineBestFit(static_cast<char16_t>(0xFF00 + c - 0x20), c);
    for (const LookAlikes& row : kLookAlikes) {
        if (std::find(std::begin(row.code_pages), std::end(row.code_pages), info_.number) ==
            std::end(row.code_pages))
            continue;
        for (const char16_t* pair = row.pairs; *pair; pair += 2) DefineLookAlike(pair[0], pair[1]);
    }
    if (info_.number == 1256) FillArabicShapes();
}

void CodePageTable::FillArabicShapes() {
    for (const Shapes& shapes : kShapes)
        for (int i = 0; i < shapes.count; ++i)
            DefineLookAlike(static_cast<char16_t>(shapes.first + i), shapes.letter);
    char16_t shape = 0xFE80;
    for (char16_t letter = 0x0621; letter <= 0x064A; ++letter) {
        if (letter == 0x063B) letter = 0x0641;
        for (int i = ShapesOf(letter); i > 0; --i) DefineLookAlike(shape++, letter);
    }
    // Marks above and below letters have two shapes each, two of which are not characters.
    for (shape = 0xFE70; shape <= 0xFE7F; ++shape)
        if (shape != 0xFE73 && shape != 0xFE75)
            DefineLookAlike(shape, static_cast<char16_t>(0x064B + (shape - 0xFE70) / 2));
}

// Writes `unit` as the character `like` if the code page has that.
void CodePageTable::DefineLookAlike(char16_t unit, char16_t like) {
    if (bytes_[like] != 0 && !best_fit_[like]) DefineBestFit(unit, bytes_[like]);
}

void CodePageTable::DefineBestFit(char16_t unit, WORD bytes) {
    if (bytes_[unit] != 0) return;
    bytes_[unit] = bytes;
    best_fit_[unit] = true;
}

} // namespace win32host
