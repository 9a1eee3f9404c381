#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "controls/accessor.h"
#include "controls/dialog_buffer.h"
#include "paperway/platform/dialogs.h"

namespace paperway {

/// The desktop's file dialogs for code that has no form. Texts can be null: `= std::nullopt`; a
/// null text reads as the empty one.
class cOpenSaveDialog {
 public:
  enum FlagBits : std::int32_t {
    kOverwritePrompt = 0x2,
    kAllowMultiSelect = 0x200,
    kExtensionDifferent = 0x400,
    kPathMustExist = 0x800,
    kFileMustExist = 0x1000,
  };

  explicit cOpenSaveDialog(Dialogs& dialogs) : dialogs_(dialogs) {}

  /// Asks in front of a window (0: the active one). False when cancelled; a dialog that fails
  /// raises, and so does a cancelled one when CancelError is set.
  bool ShowOpen(std::int32_t ownerHwnd);
  bool ShowSave(std::int32_t ownerHwnd);
  void Clear();

  bool CancelError = false;
  // Kept for their readers: no dialog of these desktops has a use for them.
  std::int32_t FlagsEx = 0;
  std::int32_t CustomHookData = 0;
  std::int32_t CustomHookProc = 0;

  /// Of the file chosen last, without its point.
  std::string FileExtension() const;
  /// Characters that MaxFileSize lacks room for, after that failure; -1 when it has no room to
  /// tell.
  std::int32_t MinimumBufferSizeRequired() const { return required_; }

 private:
  using Text = std::optional<std::string>;

  std::string fileName() const;
  void setFileName(const Text& name) { file_.setText(name.value_or("")); }
  std::string fileTitle() const { return title_.textFrom(0); }
  void setFileTitle(const Text& title) { title_.setText(title.value_or("")); }
  std::string initDir() const { return initDir_.value_or(""); }
  void setInitDir(Text folder);
  std::string filePath() const;
  std::string dialogTitle() const { return dialogTitle_; }
  void setDialogTitle(const Text& title) { dialogTitle_ = title.value_or(""); }
  std::string filter() const;
  void setFilter(Text filter);
  std::string defaultExt() const { return defaultExt_.value_or(""); }
  void setDefaultExt(Text extension) { defaultExt_ = std::move(extension); }
  std::int32_t flags() const { return flags_; }
  void setFlags(std::int32_t flags);
  std::int32_t maxFileSize() const { return file_.sizeInUse(); }
  void setMaxFileSize(std::int32_t size) { file_.setSize(size); }
  std::int32_t maxFileTitleSize() const { return title_.sizeInUse(); }
  void setMaxFileTitleSize(std::int32_t size) { title_.setSize(size); }
  std::int32_t filterIndex() const { return filterIndex_; }
  void setFilterIndex(std::int32_t index) { filterIndex_ = index < 0 ? 0 : index; }
  std::int32_t customFilterSize() const { return customFilterSize_; }
  void setCustomFilterSize(std::int32_t size) { customFilterSize_ = size < 0 ? 0 : size; }

  bool show(std::int32_t owner, FileQuestion::Purpose purpose);
  FileQuestion question(std::int32_t owner, FileQuestion::Purpose purpose) const;
  std::int32_t flagsFor(FileQuestion::Purpose purpose) const;
  std::filesystem::path start() const;
  bool take(const FileAnswer& answer);

  template <class T, T (cOpenSaveDialog::*Get)() const, auto Set>
  using Member = Accessor<cOpenSaveDialog, T, Get, Set>;
  using Self = cOpenSaveDialog;

 public:
  /// After a choice its path, or the folder of several files.
  Member<std::string, &Self::fileName, &Self::setFileName> FileName{*this};
  Member<std::string, &Self::fileTitle, &Self::setFileTitle> FileTitle{*this};
  /// The folder to begin in; ends in a backslash.
  Member<std::string, &Self::initDir, &Self::setInitDir> InitDir{*this};
  /// Reads the folder of the file chosen last, sets InitDir.
  Member<std::string, &Self::filePath, &Self::setInitDir> FilePath{*this};
  Member<std::string, &Self::dialogTitle, &Self::setDialogTitle> DialogTitle{*this};
  /// "Text (*.txt)|*.txt;*.prn|…"; reads with one "|" more at its end.
  Member<std::string, &Self::filter, &Self::setFilter> Filter{*this};
  /// FlagBits; what else is set stays and says nothing. A negative value is refused.
  Member<std::int32_t, &Self::flags, &Self::setFlags> Flags{*this};
  /// In characters; setting it empties FileName.
  Member<std::int32_t, &Self::maxFileSize, &Self::setMaxFileSize> MaxFileSize{*this};
  Member<std::int32_t, &Self::maxFileTitleSize, &Self::setMaxFileTitleSize> MaxFileTitleSize{*this};
  /// From 1.
  Member<std::int32_t, &Self::filterIndex, &Self::setFilterIndex> FilterIndex{*this};
  /// Null adds none; empty adds that of the filter.
  Member<std::string, &Self::defaultExt, &Self::setDefaultExt> DefaultExt{*this};
  Member<std::int32_t, &Self::customFilterSize, &Self::setCustomFilterSize> CustomFilterSize{*this};

 private:
  Dialogs& dialogs_;
  DialogBuffer file_{520};
  DialogBuffer title_{260};
  std::size_t fileOffset_ = 0;       // of the name in file_; 0: nothing was chosen yet
  std::size_t extensionOffset_ = 0;  // likewise of its extension; 0: none
  Text initDir_;
  std::string dialogTitle_;
  Text filter_;  // each item ends in a code 0
  Text defaultExt_;
  std::int32_t flags_ = 0;
  std::int32_t filterIndex_ = 0;
  std::int32_t customFilterSize_ = 0;
  std::int32_t required_ = 0;
};

}  // namespace paperway
