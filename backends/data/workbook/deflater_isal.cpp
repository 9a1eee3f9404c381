#include <array>
#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>
#include <vector>

#include "backends/data/workbook/deflater.h"

namespace paperway::workbook {

struct Deflater::Stream {
  isal_zstream state{};
  std::vector<std::uint8_t> level = std::vector<std::uint8_t>(ISAL_DEF_LVL1_DEFAULT);
  std::array<std::uint8_t, std::size_t{64} * 1024> room{};

  void run(std::string& out) {
    do {
      state.next_out = room.data();
      state.avail_out = static_cast<std::uint32_t>(room.size());
      isal_deflate(&state);  // fails for wrong settings alone
      out.append(room.begin(), room.end() - state.avail_out);
    } while (state.avail_out == 0);
  }
};

Deflater::Deflater() : stream_(std::make_unique<Stream>()) {
  isal_deflate_init(&stream_->state);
  stream_->state.level = 1;
  stream_->state.level_buf = stream_->level.data();
  stream_->state.level_buf_size = static_cast<std::uint32_t>(stream_->level.size());
  stream_->state.gzip_flag = IGZIP_DEFLATE;
}

Deflater::~Deflater() = default;

void Deflater::add(std::string_view bytes, std::string& out) {
  checksum_ = crc32_gzip_refl(checksum_, reinterpret_cast<const unsigned char*>(bytes.data()),
                              bytes.size());
  // The library writes to none of the bytes.
  stream_->state.next_in =
      reinterpret_cast<std::uint8_t*>(const_cast<char*>(bytes.data()));  // NOLINT
  stream_->state.avail_in = static_cast<std::uint32_t>(bytes.size());
  stream_->run(out);
}

void Deflater::end(std::string& out) {
  stream_->state.avail_in = 0;
  stream_->state.end_of_stream = 1;
  stream_->run(out);
}

}  // namespace paperway::workbook
