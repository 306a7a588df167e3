// SPDX-License-Identifier: MIT
#include "files/random_number.h"

#include <random>

namespace files {

std::uint64_t RandomNumber() {
  std::random_device device;
  return (std::uint64_t{device()} << 32) | device();
}

}  // namespace files
