#include "preview/page_styles.h"

namespace paperway {

PageLook storedLook(const ReportViewSettings& settings) {
  return {.wide = settings.color(ReportViewKey::BBold),
          .bold = settings.color(ReportViewKey::Bold),
          .condensed = settings.color(ReportViewKey::Cond)};
}

std::array<StylePass, 6> windowPasses(const DOSEFONTcHR& font) {
  return {{{font.Con, font.Coff, "cond"},
           {font.UnLOn, font.UnLoff, "uline"},
           {font.Bon, font.Boff, "bold"},
           {font.BBon, font.BBoff, "bbld"},
           {font.C96, font.C80, "c96"},
           {"\x1BG", "\x1BH", "HB"}}};
}

std::array<StylePass, 4> exportPasses(const DOSEFONTcHR& font) {
  return {{{font.Con, font.Coff, "cond"},
           {font.UnLOn, font.UnLoff, "uline"},
           {font.BBon, font.BBoff, "bbold"},
           {font.Bon, font.Boff, "bold"}}};
}

FormatChange styleOf(std::string_view setting, const PageLook& look) {
  if (setting == "bold") return {.color = look.bold, .bold = true};
  if (setting == "cond") return {.size = look.zoomed ? 9.25 : 7, .color = look.condensed};
  if (setting == "uline") return {.underline = true};
  if (setting == "bbld") {
    return {.size = look.zoomed ? 29 : 20, .color = look.wide, .bold = true};
  }
  return {};
}

}  // namespace paperway
