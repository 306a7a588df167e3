// SPDX-License-Identifier: MIT
#include "studio/code_document.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "files/memory_file_system.h"
#include "files/unit_of_work.h"
#include "project/line_diff.h"
#include "studio/unsaved_code.h"
#include "tests/support/any_file.h"
#include "vbfiles/environment.h"

namespace {

constexpr const char* kHead =
    "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = "
    "\"CPump\"\r\n";

// A class file in memory, its document, and what a save leaves in the file.
struct Fixture {
  explicit Fixture(const std::string& code) {
    system.Put("/p/Plant.ovs", "database");
    system.Put("/p/CPump.cls", kHead + code);
    environment = std::make_unique<vbfiles::Environment>(system);
    environment->Open("/p/CPump.cls");
    unit = std::make_unique<files::JournalledUnitOfWork>(system, "/p/Plant.ovs", kAnyFile);
    unit->Enlist(*environment);
    module = environment->VBProjects().front()->VBComponents().front()->Module();
    document = std::make_unique<studio::CodeDocument>(*unit, *module);
  }
  std::string Code() { return system.Get("/p/CPump.cls").substr(std::string(kHead).size()); }

  files::MemoryFileSystem system;
  std::unique_ptr<vbfiles::Environment> environment;
  std::unique_ptr<files::JournalledUnitOfWork> unit;
  platform::CodeModule* module = nullptr;
  std::unique_ptr<studio::CodeDocument> document;
};

}  // namespace

TEST(CodeDocument, SavingWritesOnlyTheLinesThatDiffer) {
  // Mixed line ends and a hidden line show which lines were left alone.
  Fixture f(
      "Option Explicit\nPublic Sub A()\r\nAttribute A.VB_Description = \"x\"\r\nEnd Sub\r\n\n' "
      "tail");
  EXPECT_EQ(f.document->Load(), "Option Explicit\nPublic Sub A()\nEnd Sub\n\n' tail");
  f.document->Save("Option Explicit\nPublic Sub A()\n  B = 1\nEnd Sub\n\n' tail");
  EXPECT_EQ(f.Code(),
            "Option Explicit\nPublic Sub A()\r\nAttribute A.VB_Description = \"x\"\r\n  B = "
            "1\r\nEnd Sub\r\n\n' tail");
  f.document->Save("Option Explicit\nPublic Sub A2()\n  B = 1\nEnd Sub\n");
  EXPECT_FALSE(f.document->ChangedMeanwhile());
  EXPECT_NE(f.Code().find("Attribute A2.VB_Description"), std::string::npos) << f.Code();
}

TEST(CodeDocument, RefusesToOverwriteWhatSomebodyElseChanged) {
  Fixture f("Option Explicit\r\nPublic Sub A()\r\nEnd Sub\r\n");
  f.document->Load();
  f.system.Put("/p/CPump.cls",
               std::string(kHead) + "Option Explicit\r\nPublic Sub Theirs()\r\nEnd Sub\r\n");
  try {
    f.document->Save("Option Explicit\nPublic Sub Mine()\nEnd Sub");
    FAIL() << "nothing was refused";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.kind(), platform::ErrorKind::kConflict);
  }
  EXPECT_EQ(f.Code(), "Option Explicit\r\nPublic Sub Theirs()\r\nEnd Sub\r\n");
  EXPECT_TRUE(f.document->ChangedMeanwhile());
}

TEST(MergeTexts, TakesBothSidesOrNeither) {
  struct Case {
    const char *mine, *theirs;
    std::optional<std::string> merged;
  };
  const std::string base = "a\nb\nc\nd\ne";
  const Case cases[] = {
      {"a\nb\nc\nd\ne", "A\nb\nc\nd\ne", "A\nb\nc\nd\ne"},
      {"a\nb\nc\nd\ne\nnew", "x\ny\na\nb\nc\nd\ne", "x\ny\na\nb\nc\nd\ne\nnew"},
      {"a\nc\nd\ne", "a\nb\nc\ne", "a\nc\ne"},
      {"a\nB\nc\nD\ne", "a\nb\nc\nD\ne", "a\nB\nc\nD\ne"},  // one change is the same
      {"a\nB\nc\nd\ne", "a\nb2\nc\nd\ne", std::nullopt},
      {"a\nB\nc\nd\ne", "a\nb\nC\nd\ne", std::nullopt},  // neighbours
      {"a\nb\nmine\nc\nd\ne", "a\nb\ntheirs\nc\nd\ne", std::nullopt},
      {"", "a\nb\nc\nd\nE", std::nullopt},
      {"a\nb\nc\nd\ne\n", "A\nb\nc\nd\ne", "A\nb\nc\nd\ne\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.mine) + "|" + c.theirs);
    EXPECT_EQ(project::MergeTexts(base, c.mine, c.theirs), c.merged);
    EXPECT_EQ(project::MergeTexts(base, c.theirs, c.mine), c.merged);
  }
}

TEST(UnsavedCopies, EachWindowKeepsItsOwn) {
  files::MemoryFileSystem system;
  const auto open = [&] { return std::make_unique<studio::UnsavedCopies>(system, "/s/unsaved"); };
  auto first = open(), second = open();
  first->Keep({"/p/CPump.cls", "base\n", "one"});
  second->Keep({"/p/CTank.cls", "", "two\nlines"});
  first->Keep({"/p/CPump.cls", "base\n", "one more"});
  EXPECT_FALSE(open()->FindLeft()) << "both windows run";
  second->Drop();
  second.reset();
  EXPECT_FALSE(open()->FindLeft()) << "nothing was unsaved";

  first.reset();
  auto next = open();
  const auto left = next->FindLeft();
  ASSERT_TRUE(left);
  EXPECT_EQ(left->module + "|" + left->base + "|" + left->text, "/p/CPump.cls|base\n|one more");
  EXPECT_FALSE(open()->FindLeft()) << "another window asks already";
  next->Keep({"/p/CPump.cls", "", "own"});
  next->RemoveLeft();
  next.reset();
  EXPECT_EQ(open()->FindLeft()->text, "own");

  system.Put("/s/unsaved/0.code", "unsaved code 1\n/p/CPump.cls\n99999999999999999999\nx");
  system.Put("/s/unsaved/1.code", "unsaved code 1\n/p/CPump.cls\n9\nx");
  EXPECT_FALSE(open()->FindLeft()) << "damaged";
}
