#include <array>
#include <new>
#include <zlib.h>

#include "backends/data/workbook/deflater.h"

namespace paperway::workbook {

namespace {

constexpr int kFastest = 1;
constexpr int kRawWindow = -15;  // no header, no trailer
constexpr int kMemory = 8;       // the library's own choice

}  // namespace

struct Deflater::Stream {
  z_stream state{};
  std::array<Bytef, std::size_t{64} * 1024> room{};

  void run(int flush, std::string& out) {
    do {
      state.next_out = room.data();
      state.avail_out = static_cast<uInt>(room.size());
      deflate(&state, flush);  // fails for wrong settings alone
      out.append(room.begin(), room.end() - state.avail_out);
    } while (state.avail_out == 0);
  }
};

Deflater::Deflater() : stream_(std::make_unique<Stream>()) {
  if (deflateInit2(&stream_->state, kFastest, Z_DEFLATED, kRawWindow, kMemory,
                   Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::bad_alloc();
  }
}

Deflater::~Deflater() {
  deflateEnd(&stream_->state);
}

void Deflater::add(std::string_view bytes, std::string& out) {
  const auto* const first = reinterpret_cast<const Bytef*>(bytes.data());
  const auto count = static_cast<uInt>(bytes.size());
  checksum_ = static_cast<std::uint32_t>(crc32(checksum_, first, count));
  stream_->state.next_in = const_cast<Bytef*>(first);  // NOLINT: an old interface
  stream_->state.avail_in = count;
  stream_->run(Z_NO_FLUSH, out);
}

void Deflater::end(std::string& out) {
  stream_->state.avail_in = 0;
  stream_->run(Z_FINISH, out);
}

}  // namespace paperway::workbook
