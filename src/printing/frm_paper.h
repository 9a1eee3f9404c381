#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/common_dialog.h"
#include "controls/form.h"
#include "controls/sheet_box.h"
#include "paperway/platform.h"
#include "printing/paper_picture.h"

namespace paperway {

/// The window that shows a job as the paper will come out of the printer.
class FrmPaper : public Form {
 public:
  /// `document` names what is printed, `sources` the files that it was made of.
  FrmPaper(const Platform& platform, std::string document, PaperJob job,
           std::vector<std::filesystem::path> sources);

  SheetBox Sheet1{*this, "Sheet1"};
  Label LbTold{*this, "LbTold", ""};
  Frame Frame8{*this, "Frame8"};
  JeweledButton CmdFst{*this, "CmdFst", "&First", &Frame8};
  JeweledButton CmdBck{*this, "CmdBck", "&Back", &Frame8};
  Label LbSheet{*this, "LbSheet", "", &Frame8};
  JeweledButton CmdNxt{*this, "CmdNxt", "&Next", &Frame8};
  JeweledButton CmdLast{*this, "CmdLast", "&Last", &Frame8};
  Label LbPaper{*this, "LbPaper", "&Paper", &Frame8};
  ComboBox CboPaper{*this, "CboPaper", {}, &Frame8};
  CheckBox ChWhole{*this, "ChWhole", "&Whole sheet", &Frame8};
  JeweledButton CmdSave{*this, "CmdSave", "&Save", &Frame8};
  JeweledButton JeExit{*this, "JeExit", "E&xit", &Frame8};

  void Form_Load() override;
  void Form_Resize() override { layOut(); }
  void Form_KeyDown(int& keyCode, int shift) override;

  /// The sheet on show, from 0.
  std::int64_t current() const { return current_; }
  /// None until the job's end has been seen.
  std::optional<std::int64_t> count() const;

  void turnTo(std::int64_t sheet);
  void CmdLast_Click();
  void CboPaper_Click();
  void CmdSave_Click();

 private:
  void describe();
  void layOut();
  void bind();
  void begin();
  void read(std::int64_t first);
  void showSheet();

  Platform platform_;
  const std::string name_;
  PaperJob job_;
  const std::vector<std::filesystem::path> sources_;
  CommonDialog dialog_;
  std::vector<PaperShape> papers_;
  std::int64_t current_ = 0;
  std::int64_t first_ = 0;  // of those that are known
  std::vector<std::shared_ptr<const Sheet>> known_;
  std::optional<PaperFindings> findings_;
};

}  // namespace paperway
