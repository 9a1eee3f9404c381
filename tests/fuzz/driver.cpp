#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz/fuzz.h"

/// Present when a sanitizer is linked in.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace {

constexpr long kDefaultInputs = 20000;
constexpr std::size_t kLongest = 4096;
constexpr std::size_t kPool = 256;

std::string current;  // what the target is given, shown when it dies of it

void showCurrent() {
  std::fprintf(stderr, "The input, %zu bytes:\n", current.size());
  for (const char c : current) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F && c != '\\' && c != '"') {
      std::fputc(c, stderr);
    } else {
      std::fprintf(stderr, "\\%03o", byte);
    }
  }
  std::fputc('\n', stderr);
}

void showAndDie(int signal) {
  showCurrent();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void showInputOnDeath() {
  if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(showCurrent);
  std::signal(SIGABRT, showAndDie);
  if (__sanitizer_set_death_callback == nullptr) std::signal(SIGSEGV, showAndDie);
}

/// Texts that are changed a little at a time, always in the same way.
class Mutator {
 public:
  explicit Mutator(std::vector<std::string> seeds) : pool_(std::move(seeds)) {
    if (pool_.empty()) pool_.emplace_back();
  }

  std::string next() {
    std::string input = any();
    for (std::size_t changes = 1 + below(6); changes > 0; --changes) change(input);
    input.resize(std::min(input.size(), kLongest));
    if (pool_.size() < kPool && below(8) == 0) pool_.push_back(input);
    return input;
  }

 private:
  std::size_t below(std::size_t end) { return random_() % end; }
  const std::string& any() { return pool_[below(pool_.size())]; }

  std::string anyPart(const std::string& text) {
    const std::size_t from = below(text.size() + 1);
    return text.substr(from, below(std::min<std::size_t>(text.size() - from, 16) + 1));
  }

  void change(std::string& input) {
    const std::size_t at = below(input.size() + 1);
    const auto byte = static_cast<char>(random_());
    switch (below(7)) {
      case 0:
        input.insert(at, anyPart(any()));
        break;
      case 1:
        input.insert(at, anyPart(input));
        break;
      case 2:
        input.erase(at, below(8));
        break;
      case 3:
        input.insert(at, 1, byte);
        break;
      case 4:
        input.insert(at, below(64), input.empty() ? byte : input[below(input.size())]);
        break;
      case 5:
        input.replace(at, std::string::npos, anyPart(any()));
        break;
      default:
        if (at < input.size()) input[at] = below(2) == 0 ? byte : static_cast<char>(input[at] ^ 1);
    }
  }

  std::mt19937 random_{20260305};
  std::vector<std::string> pool_;
};

void run(std::string input) {
  current = std::move(input);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(current.data()), current.size());
}

std::string readAll(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

/// Usage: fuzz_NAME [number of inputs, or a file to run alone]
int main(int argc, char** argv) {
  showInputOnDeath();
  if (argc > 1 && std::filesystem::exists(argv[1])) {
    run(readAll(argv[1]));
    return 0;
  }
  const auto seeds = paperway::fuzz::seeds();
  for (const std::string& seed : seeds) run(seed);
  Mutator mutator(seeds);
  const long inputs = argc > 1 ? std::atol(argv[1]) : kDefaultInputs;
  for (long i = 0; i < inputs; ++i) run(mutator.next());
  std::printf("%ld inputs\n", inputs);
}
