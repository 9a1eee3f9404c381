#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "paperway/platform/sheet.h"
#include "printed/paper_reader.h"

namespace paperway {

/// Continuous paper in a printer, in inches.
struct PaperShape {
  double width = 9.5;  // with its strips
  double height = 11;
  double printable = 8;  // of the width

  bool operator==(const PaperShape&) const = default;
};

/// What a user should know of a job before the paper is gone.
struct PaperFindings {
  struct Unknown {
    std::int64_t times = 0;
    std::int64_t firstSheet = 0;
  };

  std::int64_t sheets = 0;
  double pageLength = 0;      // as the printer was told
  double height = 0;          // of a sheet
  std::int64_t cutLines = 0;  // beyond the right edge
  std::int64_t firstCutSheet = 0;
  std::int64_t torn = 0;  // lines across a perforation
  std::int64_t firstTornSheet = 0;
  std::uint64_t plain = 0;  // letters that the printer's code table lacks
  int codeTable = 0;
  std::int64_t lost = 0;  // texts on paper fed back farther than it can be
  double nextJob = 0;     // how much lower on its sheet the next job begins
  std::map<std::string, Unknown> unknown{};

  /// A sentence each.
  std::vector<std::string> told() const;
  /// The same in one line.
  std::string line() const;
};

/// Lays what a job leaves on the paper out on sheets, and gives them away one by one as soon as no
/// feeding back can reach them any more. The first sheet begins where the paper stands when the job
/// prints its first mark, or had been fed back to before: how far the paper stood out for tearing
/// off is then what the job feeds back.
class PaperSheets : public PaperSink {
 public:
  PaperSheets(const PaperShape& shape, std::function<void(Sheet)> take)
      : shape_(shape), take_(std::move(take)) {}

  /// The job is done.
  PaperFindings end();
  /// Sheets that were given away.
  std::int64_t given() const { return firstOpen_; }

  // What happens on the paper.
  void text(const PaperText& text) override;
  void image(const PaperImage& image) override;
  void feed(const PaperFeed& feed) override;
  void unknown(const std::string& code, double top) override;

 private:
  Sheet blank(std::int64_t index) const;
  double downFrom(double top) const { return top - origin_; }
  std::int64_t indexAt(double down) const;
  /// Null for one that has been given away.
  Sheet* sheetAt(std::int64_t index);
  void put(SheetText text, double down);
  void cut(double down);
  void giveUpTo(std::int64_t index);

  PaperShape shape_;
  std::function<void(Sheet)> take_;
  bool begun_ = false;
  double origin_ = 0;  // of the first sheet, along the paper
  double at_ = 0;      // of the head
  double lastCut_ = -1;
  double lastTorn_ = -1;
  std::int64_t firstOpen_ = 0;
  std::deque<Sheet> open_;
  PaperFindings findings_;
};

}  // namespace paperway
