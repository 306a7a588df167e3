// SPDX-License-Identifier: MIT
// Reading what code does with names, beside one plain pass over the same text: each byte is looked
// at once, to count words and lines. Smaller is better.
#include <algorithm>
#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bench/report.h"
#include "vbcode/program.h"
#include "vbcode/source_lexer.h"

namespace {

// What a loop computes goes here, so that the compiler cannot leave the loop out.
volatile std::size_t sink = 0;

// A class as engineers write them: declarations, then procedures of some thirty lines.
std::string ClassText(int lines) {
  std::string text = "Option Explicit\r\n\r\n";
  int count = 2;
  for (; count < lines / 20; ++count) {
    text += "Public Level" + std::to_string(count) + " As Double 'Tank" + std::to_string(count) +
            ".Level\r\n";
  }
  for (int sub = 0; count + 30 <= lines; ++sub) {
    const std::string n = std::to_string(sub % 1000 + 2);
    text += "\r\n'********************************************************\r\n'Formula " +
            std::to_string(sub) + "\r\nPublic Sub Formula" + std::to_string(sub) + "()\r\n";
    for (int i = 0; i < 5; ++i) {
      text += "    Dim difference" + std::to_string(i) +
              " As Double\r\n"
              "    difference = Level" +
              n +
              " - Level4 * 0.25 ' litres\r\n"
              "    If difference > 10 Then\r\n"
              "        Pump.Speed = Clamp(difference, 0, 100)\r\n"
              "    End If\r\n";
    }
    text += "End Sub\r\n";
    count += 30;
  }
  for (; count < lines; ++count) text += "' end\r\n";
  return text;
}

std::size_t CountWords(const std::string& text) {
  std::size_t words = 0;
  std::size_t lines = 0;
  bool in_word = false;
  for (const char c : text) {
    const bool word = vbcode::IsWordCharacter(c);
    if (word && !in_word) ++words;
    if (c == '\n') ++lines;
    in_word = word;
  }
  return words + lines;
}

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Runs both in turn and prints their shortest times: the processor's, since other programs run,
// too.
void Compare(const std::string& what, double limit, const std::function<void()>& subject,
             const std::function<void()>& reference) {
  constexpr int kRuns = 20;
  double shortest = 1e9, shortest_reference = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const double begin = ProcessorSeconds();
    reference();
    const double middle = ProcessorSeconds();
    subject();
    const double end = ProcessorSeconds();
    shortest_reference = std::min(shortest_reference, middle - begin);
    shortest = std::min(shortest, end - middle);
  }
  bench::PrintRatio(what, shortest * 1e6, shortest_reference * 1e6, "us", limit);
}

vbcode::Program Read(std::string text) {
  std::vector<vbcode::ModuleSource> sources;
  sources.push_back({"C", "P", vbcode::ModuleKind::kClass, std::move(text)});
  return vbcode::Program(std::move(sources));
}

}  // namespace

int main() {
  bench::PrintHeading("ours", "plain pass");
  const std::string text = ClassText(30000);
  const std::string twice = ClassText(60000);
  Compare(
      "names of a class of 30,000 lines", 5, [&] { sink = Read(text).module(0).meanings.size(); },
      [&] { sink = CountWords(text); });
  Compare(
      "names of 60,000 lines, to those of 30,000", 2.5,
      [&] { sink = Read(twice).module(0).meanings.size(); },
      [&] { sink = Read(text).module(0).meanings.size(); });
  return 0;
}
