// SPDX-License-Identifier: MIT
// In place of libFuzzer where that is not: runs a target over the seeds of a folder, each whole and
// cut short, so that targets are linked and seeds fit with every change.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
    return 2;
  }
  std::vector<std::filesystem::path> seeds;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    if (entry.is_regular_file()) seeds.push_back(entry.path());
  }
  std::ranges::sort(seeds);
  constexpr std::size_t kCuts = 8;
  for (const std::filesystem::path& seed : seeds) {
    std::printf("%s\n", seed.string().c_str());
    std::fflush(stdout);  // the name of the seed that ends the program
    std::ifstream in(seed, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
    for (std::size_t cut = 0; cut <= kCuts; ++cut) {
      const std::size_t size = bytes.size() * cut / kCuts;
      // A copy of its own, so that a sanitizer sees its end.
      const std::vector<std::uint8_t> input(bytes.begin(),
                                            bytes.begin() + static_cast<std::ptrdiff_t>(size));
      LLVMFuzzerTestOneInput(input.data(), input.size());
    }
  }
  return seeds.empty() ? 1 : 0;
}
