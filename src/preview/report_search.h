#pragma once

#include <cstdint>
#include <string>

namespace paperway {

class FrmReportControls;
class Windows;

/// Marks what Text4 says wherever it stands in Rt1.
class ReportSearch {
 public:
  ReportSearch(FrmReportControls& window, Windows& windows) : window_(window), windows_(windows) {}

  /// Waiting events may run between two hits, and with them the Esc key, a page move, the closing
  /// of the window, or another search, which takes the place of this one.
  void run();

 private:
  void markHits();
  std::int64_t findNext(const std::string& bytes, std::int64_t from, std::int64_t end);
  bool isStopped() const;

  FrmReportControls& window_;
  Windows& windows_;
  bool running_ = false;
  bool again_ = false;
};

}  // namespace paperway
