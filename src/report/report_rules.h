#pragma once

namespace paperway {

enum class PageUnit { none, lines, twips };

/// The points in which the writers of a report differ. All else of a run is theirs in common.
struct ReportRules {
  bool rewinds;               // reads from the first row on, not from the one in hand
  bool hasGroups;             // and totals of them
  bool blanksDuplicates;      // in the columns that ask for it
  bool nullBeginsOuterGroup;  // as one blank; else a null only heads the inner group again
  bool caseHeadsInnerGroup;   // again, when the outer value differs in nothing but case
  bool innerEndsByOwnText;    // at an outer change, its text alone against the key of both levels
  const char* nullHeading;    // of an inner group
  bool closesUnbegunInner;    // totals of an inner group close a report without rows
  bool typeXTakesPlace;       // in lines of totals
  bool zeroWidthTakesPlace;   // in any line
  PageUnit page;
};

inline constexpr ReportRules kTextRules{.rewinds = true,
                                        .hasGroups = true,
                                        .blanksDuplicates = true,
                                        .nullBeginsOuterGroup = true,
                                        .caseHeadsInnerGroup = false,
                                        .innerEndsByOwnText = false,
                                        .nullHeading = " ",
                                        .closesUnbegunInner = true,
                                        .typeXTakesPlace = true,
                                        .zeroWidthTakesPlace = true,
                                        .page = PageUnit::lines};

inline constexpr ReportRules kHtmlRules{.rewinds = false,
                                        .hasGroups = true,
                                        .blanksDuplicates = true,
                                        .nullBeginsOuterGroup = false,
                                        .caseHeadsInnerGroup = false,
                                        .innerEndsByOwnText = true,
                                        .nullHeading = "",
                                        .closesUnbegunInner = false,
                                        .typeXTakesPlace = false,
                                        .zeroWidthTakesPlace = true,
                                        .page = PageUnit::twips};

inline constexpr ReportRules kSalaryHtmlRules{.rewinds = false,
                                              .hasGroups = true,
                                              .blanksDuplicates = true,
                                              .nullBeginsOuterGroup = false,
                                              .caseHeadsInnerGroup = true,
                                              .innerEndsByOwnText = true,
                                              .nullHeading = "",
                                              .closesUnbegunInner = false,
                                              .typeXTakesPlace = false,
                                              .zeroWidthTakesPlace = false,
                                              .page = PageUnit::twips};

inline constexpr ReportRules kWorkbookRules{.rewinds = false,
                                            .hasGroups = false,
                                            .blanksDuplicates = false,
                                            .nullBeginsOuterGroup = false,
                                            .caseHeadsInnerGroup = false,
                                            .innerEndsByOwnText = false,
                                            .nullHeading = "",
                                            .closesUnbegunInner = false,
                                            .typeXTakesPlace = true,
                                            .zeroWidthTakesPlace = true,
                                            .page = PageUnit::none};

}  // namespace paperway
