// SPDX-License-Identifier: MIT
#include "workbench/code_document.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "files/memory_file_system.h"
#include "files/unit_of_work.h"
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
    document = std::make_unique<workbench::CodeDocument>(*unit, *module);
  }
  std::string Code() { return system.Get("/p/CPump.cls").substr(std::string(kHead).size()); }

  files::MemoryFileSystem system;
  std::unique_ptr<vbfiles::Environment> environment;
  std::unique_ptr<files::JournalledUnitOfWork> unit;
  platform::CodeModule* module = nullptr;
  std::unique_ptr<workbench::CodeDocument> document;
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
