#include "util/paper.h"

#include <algorithm>
#include <iterator>

namespace paperway {
namespace {

constexpr int inches(double length) {
  return static_cast<int>(length * 2540 + 0.5);
}
constexpr int millimetres(double length) {
  return static_cast<int>(length * 100 + 0.5);
}

// Several numbers share a sheet; the first of them is the one that a media name stands for.
constexpr Paper kPapers[] = {
    {1, "Letter", "na_letter_8.5x11in", inches(8.5), inches(11)},
    {2, "Letter Small", "na_letter_8.5x11in", inches(8.5), inches(11)},
    {3, "Tabloid", "na_ledger_11x17in", inches(11), inches(17)},
    {4, "Ledger", "na_ledger_11x17in", inches(17), inches(11)},
    {5, "Legal", "na_legal_8.5x14in", inches(8.5), inches(14)},
    {6, "Statement", "na_invoice_5.5x8.5in", inches(5.5), inches(8.5)},
    {7, "Executive", "na_executive_7.25x10.5in", inches(7.25), inches(10.5)},
    {8, "A3", "iso_a3_297x420mm", millimetres(297), millimetres(420)},
    {9, "A4", "iso_a4_210x297mm", millimetres(210), millimetres(297)},
    {10, "A4 Small", "iso_a4_210x297mm", millimetres(210), millimetres(297)},
    {11, "A5", "iso_a5_148x210mm", millimetres(148), millimetres(210)},
    {12, "B4 (JIS)", "jis_b4_257x364mm", millimetres(257), millimetres(364)},
    {13, "B5 (JIS)", "jis_b5_182x257mm", millimetres(182), millimetres(257)},
    {14, "Folio", "na_foolscap_8.5x13in", inches(8.5), inches(13)},
    {15, "Quarto", "custom_quarto_215x275mm", millimetres(215), millimetres(275)},
    {16, "10 x 14 in", "na_10x14_10x14in", inches(10), inches(14)},
    {17, "11 x 17 in", "na_ledger_11x17in", inches(11), inches(17)},
    {18, "Note", "na_letter_8.5x11in", inches(8.5), inches(11)},
    {19, "Envelope 9", "na_number-9_3.875x8.875in", inches(3.875), inches(8.875)},
    {20, "Envelope 10", "na_number-10_4.125x9.5in", inches(4.125), inches(9.5)},
    {21, "Envelope 11", "na_number-11_4.5x10.375in", inches(4.5), inches(10.375)},
    {22, "Envelope 12", "na_number-12_4.75x11in", inches(4.75), inches(11)},
    {23, "Envelope 14", "na_number-14_5x11.5in", inches(5), inches(11.5)},
    {24, "C sheet", "na_c_17x22in", inches(17), inches(22)},
    {25, "D sheet", "na_d_22x34in", inches(22), inches(34)},
    {26, "E sheet", "na_e_34x44in", inches(34), inches(44)},
    {27, "Envelope DL", "iso_dl_110x220mm", millimetres(110), millimetres(220)},
    {28, "Envelope C5", "iso_c5_162x229mm", millimetres(162), millimetres(229)},
    {29, "Envelope C3", "iso_c3_324x458mm", millimetres(324), millimetres(458)},
    {30, "Envelope C4", "iso_c4_229x324mm", millimetres(229), millimetres(324)},
    {31, "Envelope C6", "iso_c6_114x162mm", millimetres(114), millimetres(162)},
    {32, "Envelope C65", "iso_c6c5_114x229mm", millimetres(114), millimetres(229)},
    {33, "Envelope B4", "iso_b4_250x353mm", millimetres(250), millimetres(353)},
    {34, "Envelope B5", "iso_b5_176x250mm", millimetres(176), millimetres(250)},
    {35, "Envelope B6", "iso_b6_125x176mm", millimetres(176), millimetres(125)},
    {36, "Envelope Italy", "om_italian_110x230mm", millimetres(110), millimetres(230)},
    {37, "Envelope Monarch", "na_monarch_3.875x7.5in", inches(3.875), inches(7.5)},
    {38, "Envelope Personal", "na_personal_3.625x6.5in", inches(3.625), inches(6.5)},
    {39, "US Standard Fanfold", "na_fanfold-us_11x14.875in", inches(14.875), inches(11)},
    {40, "German Standard Fanfold", "na_fanfold-eur_8.5x12in", inches(8.5), inches(12)},
    {41, "German Legal Fanfold", "na_foolscap_8.5x13in", inches(8.5), inches(13)},
};

template <typename Matches>
const Paper* find(const Matches& matches) {
  const Paper* const found = std::find_if(std::begin(kPapers), std::end(kPapers), matches);
  return found == std::end(kPapers) ? nullptr : found;
}

}  // namespace

const Paper* paperByNumber(std::int16_t number) {
  return find([&](const Paper& paper) { return paper.number == number; });
}

const Paper* paperByMediaName(std::string_view mediaName) {
  return find([&](const Paper& paper) { return paper.mediaName == mediaName; });
}

}  // namespace paperway
