#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>

#include "fuzz/fuzz.h"

/// Present when a sanitizer is linked in.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace {

constexpr long kDefaultInputs = 20000;
constexpr unsigned kDefaultSeed = 20260305;
constexpr std::size_t kLongest = 4096;
constexpr std::size_t kPool = 256;

std::string current;  // what the target is given, kept and shown when it dies of it

void showCurrent() {
  constexpr const char* kKept = "fuzz_input.bin";
  if (std::FILE* file = std::fopen(kKept, "wb"); file != nullptr) {
    std::fwrite(current.data(), 1, current.size(), file);
    std::fclose(file);
    std::fprintf(stderr, "Kept in %s. ", kKept);
  }
  std::fprintf(stderr, "The input, %zu bytes:\n", current.size());
  for (const char c : current) {
    const bool plain = c >= 0x20 && c < 0x7F && c != '\\' && c != '"';
    std::fprintf(stderr, plain ? "%c" : "\\%03o", static_cast<unsigned char>(c));
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
  Mutator(std::vector<std::string> seeds, unsigned seed) : random_(seed), pool_(std::move(seeds)) {
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
    const std::size_t kind = below(7);
    if (kind == 0) input.insert(at, anyPart(any()));
    if (kind == 1) input.insert(at, anyPart(input));
    if (kind == 2) input.erase(at, below(8));
    if (kind == 3) input.insert(at, 1, byte);
    if (kind == 4) input.insert(at, below(64), input.empty() ? byte : input[below(input.size())]);
    if (kind == 5) input.replace(at, std::string::npos, anyPart(any()));
    if (kind == 6 && at < input.size()) {
      input[at] = below(2) == 0 ? byte : static_cast<char>(input[at] ^ 1);
    }
  }

  std::mt19937 random_;
  std::vector<std::string> pool_;
};

void run(std::string input) {
  current = std::move(input);
  paperway::fuzz::check(current);
}

struct Options {
  long inputs = kDefaultInputs;
  double seconds = std::numeric_limits<double>::infinity();
  unsigned seed = kDefaultSeed;
  std::string file;  // to run alone
};

Options optionsOf(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    const char* value = i + 1 < argc ? argv[i + 1] : "";
    if (name == "--inputs")
      options.inputs = std::atol(value), ++i;
    else if (name == "--seconds")
      options.seconds = std::atof(value), ++i;
    else if (name == "--seed")
      options.seed = static_cast<unsigned>(std::atol(value)), ++i;
    else
      options.file = name;
  }
  return options;
}

int runFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::fprintf(stderr, "Cannot read \"%s\".\n", path.c_str()), 2;
  run({std::istreambuf_iterator<char>(file), {}});
  return 0;
}

}  // namespace

/// Usage: fuzz_NAME [--inputs N] [--seconds S] [--seed X] | FILE
/// Gives the target N inputs, or as many as S seconds allow; or the one in FILE.
int main(int argc, char** argv) {
  using Clock = std::chrono::steady_clock;
  const Options options = optionsOf(argc, argv);
  showInputOnDeath();
  if (!options.file.empty()) return runFile(options.file);
  const auto begin = Clock::now();
  const auto seeds = paperway::fuzz::seeds();
  for (const std::string& seed : seeds) run(seed);
  Mutator mutator(seeds, options.seed);
  long inputs = 0;
  const std::chrono::duration<double> limit(options.seconds);
  while (inputs < options.inputs && Clock::now() - begin < limit) run(mutator.next()), ++inputs;
  std::printf("%ld inputs, seed %u\n", inputs, options.seed);
}
