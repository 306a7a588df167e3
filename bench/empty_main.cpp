// SPDX-License-Identifier: MIT
// What starting any C++ program costs.
#include <iostream>

int main() { std::cout << "empty\n"; }
