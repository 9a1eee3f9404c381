#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

#include "paperway/platform/spooler.h"

namespace paperway {

inline std::string bytesOfAllCodes(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
  return bytes;
}

/// What every spooler does. A Desk has a printer called "P", the spooler that knows it, and
/// takes the next whole document from it: take().
template <class Desk>
class SpoolerContract : public testing::Test {
 protected:
  void print(const std::string& name, const std::string& bytes, std::size_t piece) {
    const auto job = desk_.spooler().open("P");
    ASSERT_TRUE(job);
    job->start(name, DocumentFormat::raw);
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
      job->write(std::string_view(bytes).substr(at, piece));
    }
    job->end();
  }

  Desk desk_;
};

TYPED_TEST_SUITE_P(SpoolerContract);

TYPED_TEST_P(SpoolerContract, EveryByteArrivesInOrder) {
  for (const std::size_t size : {std::size_t{1}, std::size_t{4096}, std::size_t{50'000'001}}) {
    const std::string bytes = bytesOfAllCodes(size);
    this->print("a report", bytes, 70'001);
    EXPECT_TRUE(this->desk_.take() == bytes) << size << " bytes";
  }
}

TYPED_TEST_P(SpoolerContract, UnknownPrinterIsNothing) {
  EXPECT_FALSE(this->desk_.spooler().open("Nobody knows me"));
  EXPECT_FALSE(this->desk_.spooler().open(""));
}

TYPED_TEST_P(SpoolerContract, DocumentWithoutBytesStopsNothing) {
  this->print("empty", "", 1);
  this->print("after it", "text", 2);
  auto document = this->desk_.take();
  if (document == "") document = this->desk_.take();
  EXPECT_EQ(document, "text");
}

TYPED_TEST_P(SpoolerContract, CancelledJobIsNoDocument) {
  {
    const auto job = this->desk_.spooler().open("P");
    job->start("cancelled", DocumentFormat::raw);
    job->write("half a ");
  }
  this->print("after it", "whole", 5);
  EXPECT_EQ(this->desk_.take(), "whole");
}

TYPED_TEST_P(SpoolerContract, RawPrinterRefusesPdf) {
  const auto job = this->desk_.spooler().open("P");
  EXPECT_THROW(job->start("drawn", DocumentFormat::pdf), SpoolError);
}

REGISTER_TYPED_TEST_SUITE_P(SpoolerContract, EveryByteArrivesInOrder, UnknownPrinterIsNothing,
                            DocumentWithoutBytesStopsNothing, CancelledJobIsNoDocument,
                            RawPrinterRefusesPdf);

}  // namespace paperway
