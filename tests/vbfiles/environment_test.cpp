// SPDX-License-Identifier: MIT
// Projects, their components, and files that others change.
#include "vbfiles/environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "files/unit_of_work.h"
#include "tests/support/any_file.h"
#include "tests/vbfiles/class_project.h"

namespace vbfiles {
namespace {

using platform::ErrorKind;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The error that the call raises; its description must contain `named`.
platform::Error ErrorOf(const std::function<void()>& call, const std::string& named) {
  try {
    call();
  } catch (const platform::Error& error) {
    EXPECT_THAT(error.description(), HasSubstr(named));
    return error;
  }
  ADD_FAILURE() << "no error that names " << named;
  return platform::Error(ErrorKind::kInternal, 0, messages::Message());
}

std::vector<std::string> Names(platform::VBProject& project) {
  std::vector<std::string> names;
  for (const auto& component : project.VBComponents()) {
    names.push_back(component->Name() + " " + std::to_string(static_cast<int>(component->Type())) +
                    " " + std::to_string(static_cast<int>(component->GetInstancing())));
  }
  return names;
}

std::vector<std::string> ProblemsOf(Environment& environment) {
  std::vector<std::string> problems;
  for (const messages::Message& problem : environment.Problems()) {
    problems.push_back(problem.English());
  }
  return problems;
}

TEST(Environment, ListsEveryKindOfComponent) {
  files::MemoryFileSystem system;
  system.Put("/plant/server/Pump.vbp",
             "\xEF\xBB\xBFType=OleDll\n"
             "Reference=*\\G{00020430}#2.0#0#C:\\stdole2.tlb#OLE Automation\n"
             "Class=COld; ..\\Common\\CPump.CLS\n"
             "Module=MMain;MMAIN.bas\n"
             "Form=forms/frmMain.frm\n"
             "Form=mdi.frm\n"
             "UserControl=gauge.ctl\nPropertyPage=page.pag\nUserDocument=doc.dob\n"
             "Designer=conn.dsr\n"
             "RelatedDoc=readme.txt\n"
             "Class=CBare; bare.cls\n"
             "Class=CGone; C:\\old\\gone.cls\n"
             "ResFile32=\"app.res\"\n"
             "Name=\"PumpServer\"\n\n"
             "[Some Add-In]\nClass=CNot; not.cls\nName=\"Other\"\n");
  system.Put("/plant/common/cpump.cls", ClassProject::Header());
  system.Put("/plant/server/MMain.bas", "Attribute VB_Name = \"MMain\"\r\n");
  // The header of a form can be longer than what is read at first.
  std::string form =
      "VERSION 5.00\r\nObject = \"{831}#2.0#0\"; \"MSCOMCTL.OCX\"\r\nBegin VB.Form f\r\n";
  for (int i = 0; i < 3000; ++i) form += "  Begin VB.Label l\r\n    Caption = \"End\"\r\n  End\r\n";
  system.Put("/plant/server/forms/frmMain.frm",
             form + "End\r\nAttribute VB_Name = \"frmMain\"\r\nDim a");
  system.Put("/plant/server/mdi.frm", "VERSION 5.00\r\nBegin VB.MDIForm frmMdi \r\nEnd\r\n");
  for (const char* file :
       {"gauge.ctl", "page.pag", "doc.dob", "conn.dsr", "app.res", "readme.txt"}) {
    system.Put(std::string("/plant/server/") + file, "");
  }
  system.Put("/plant/server/bare.cls", "Public Level As Double\r\n");
  Environment environment(system);
  environment.Open("/plant/server/Pump.vbp");
  const auto project = environment.FindProject("PUMPSERVER");
  ASSERT_NE(project, nullptr);
  EXPECT_THAT(Names(*project),
              ElementsAre("CPump 2 5", "MMain 1 0", "frmMain 5 0", "frmMdi 6 0", "gauge 8 0",
                          "page 7 0", "doc 9 0", "conn 11 0", "readme.txt 10 0", "CBare 2 1",
                          "CGone 2 1", "app.res 4 0"));
  EXPECT_EQ(project->FindComponent("readme.txt")->Module(), nullptr);
  EXPECT_EQ(project->FindComponent("app.res")->Module(), nullptr);
  EXPECT_EQ(project->FindComponent("COld"), nullptr);
  EXPECT_EQ(project->FindComponent("FRMMAIN")->Module()->Lines(1, 9), "Dim a");
  EXPECT_EQ(project->FindComponent("CPump")->FileName(), "/plant/common/cpump.cls");
  EXPECT_THAT(ProblemsOf(environment), ElementsAre(HasSubstr("C:\\old\\gone.cls")));
  platform::CodeModule& gone = *project->FindComponent("CGone")->Module();
  ErrorOf([&] { gone.CountOfLines(); }, "gone.cls");
  EXPECT_EQ(ErrorOf([&] { gone.AddFromString("x"); }, "gone.cls").number(),
            platform::kErrModuleNotEditable);
}

TEST(Environment, InstancingOfAClass) {
  struct Row {
    const char *exposed, *creatable, *multi_use, *global;
    int instancing;
  };
  const Row rows[] = {
      {"False", "True", "-1  'True", "True", 1}, {"False", "False", "0  'False", "False", 1},
      {"True", "False", "-1  'True", "True", 2}, {"True", "True", "-1  'True", "False", 5},
      {"True", "True", "-1  'True", "True", 6},  {"True", "True", "0  'False", "False", 3},
      {"True", "True", "0  'False", "True", 4},
  };
  for (const Row& row : rows) {
    const std::string file =
        std::string("VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = ") + row.multi_use +
        "\r\n  DataSourceBehavior  = 0  'vbNone\r\nEND\r\nAttribute VB_Name = "
        "\"C\"\r\nAttribute VB_GlobalNameSpace = " +
        row.global + "\r\nAttribute VB_Creatable = " + row.creatable +
        "\r\nAttribute VB_PredeclaredId = True\r\nAttribute VB_Exposed = " + row.exposed + "\r\n";
    ClassProject project(file, {}, true);
    EXPECT_EQ(static_cast<int>(project.Component()->GetInstancing()), row.instancing)
        << row.exposed << row.creatable << row.multi_use << row.global;
  }
}

TEST(Environment, WhatIsNoSourceHasNoMembersAndIsNotWritten) {
  const std::string contents[] = {
      std::string("VERSION 1.0 CLASS\r\nBEGIN\r\n\0\0END\r\n", 33),
      std::string("\xFF\xFEV\0E\0R\0S\0", 10),
      "\x8F\x12\x93garbage:stuff\r\n\xA0\xB1\xC2 more",
      std::string("Public Sub A()\r\nEnd Sub\0x\r\n", 27),
  };
  for (const std::string& content : contents) {
    SCOPED_TRACE(content);
    ClassProject project(content, {}, true);
    EXPECT_EQ(project.Module().CountOfLines(), 0);
    EXPECT_THAT(project.Module().Members(), IsEmpty());
    ErrorOf([&] { project.Module().RequireSource(); }, "CPump.cls");
    EXPECT_EQ(ErrorOf([&] { project.Module().AddFromString("x"); }, "CPump.cls").number(),
              platform::kErrModuleNotEditable);
    EXPECT_EQ(project.Written(), content);
  }
}

TEST(Environment, GroupsAndTheProjectsTheyName) {
  files::MemoryFileSystem system;
  system.Put("/p/All.vbg",
             "VBGROUP 5.0\r\nProject=test\\Client.vbp\r\nStartupProject=Server\\Pump.vbp\r\n"
             "Project=All.vbg\r\nProject=gone.vbp\r\nProject=SERVER\\pump.vbp\r\n");
  system.Put("/p/Server/Pump.vbp", "Type=OleDll\r\nName=\"Pump\"\r\nClass=C; ..\\C.cls\r\n");
  system.Put("/p/test/Client.vbp", "Type=Exe\r\nName=Client\r\nClass=C; ..\\c.cls\r\n");
  system.Put("/p/C.cls", ClassProject::Header("C"));
  Environment environment(system);
  environment.Open(FindProjectFiles(system, "/p"));
  ASSERT_EQ(environment.VBProjects().size(), 2u);
  EXPECT_EQ(environment.VBProjects()[0]->Name(), "Pump");
  EXPECT_THAT(ProblemsOf(environment),
              ElementsAre(HasSubstr("/p/All.vbg is not a project"), HasSubstr("/p/gone.vbp")));

  // Both projects name the class's file: one document, and inside the group's tree.
  const auto in_server = environment.FindProject("pump")->FindComponent("C");
  const auto in_client = environment.FindProject("client")->FindComponent("C");
  in_server->Module()->AddFromString("Public a");
  EXPECT_EQ(in_client->Module()->Lines(1, 1), "Public a");
  files::ChangeSet changes;
  environment.Collect(changes);
  EXPECT_EQ(changes.files.size(), 1u);

  // A group that changed is read again; what stays keeps its objects.
  system.Put("/p/All.vbg", "VBGROUP 5.0\r\nStartupProject=Server\\Pump.vbp\r\n");
  Environment alone(system);
  alone.Open("/p/All.vbg");
  const auto pump = alone.FindProject("Pump");
  system.Put("/p/All.vbg",
             "VBGROUP 5.0\r\nProject=test\\Client.vbp\r\nProject=Server\\Pump.vbp\r\n");
  EXPECT_EQ(alone.VBProjects().size(), 2u);
  EXPECT_EQ(alone.FindProject("Pump"), pump);

  system.Put("/p/Copy.vbp", "Name=\"PUMP\"\r\n");
  const auto twice = [&] { environment.Open("/p/Copy.vbp"); };
  ErrorOf(twice, "/p/Server/Pump.vbp");
  EXPECT_EQ(ErrorOf(twice, "/p/Copy.vbp").kind(), ErrorKind::kRefused);
  EXPECT_EQ(environment.VBProjects().size(), 2u);
  ErrorOf([&] { environment.Open("/p/gone.vbp"); }, "/p/gone.vbp");
}

TEST(Environment, ProjectFilesAreReadAgain) {
  ClassProject project("Option Explicit\r\n");
  const auto component = project.Component();
  project.system.Put("/plant/CTank.cls", ClassProject::Header("CTank"));
  project.system.Put("/plant/PumpServer.vbp",
                     "Type=OleDll\r\nName=\"PumpServer\"\r\nClass=CTank; CTank.cls\r\nClass=CPump; "
                     "CPump.cls\r\nClass=CTank; CPump2.cls\r\n");
  const auto server = project.environment.FindProject("PumpServer");
  EXPECT_THAT(Names(*server), ElementsAre("CTank 2 5", "CPump 2 5", "CTank 2 1"));
  EXPECT_EQ(server->FindComponent("CPump"), component);
  EXPECT_THAT(ProblemsOf(project.environment),
              ElementsAre(HasSubstr("CPump2.cls"), HasSubstr("/plant/CTank.cls and")));
  project.system.Put(ClassProject::kPath, ClassProject::Header("CRenamed"));
  EXPECT_NE(server->FindComponent("crenamed"), nullptr);
  EXPECT_EQ(server->FindComponent("CPump"), nullptr);
}

TEST(Environment, FindsProjectFilesBelowAFolder) {
  files::MemoryFileSystem system;
  for (const char* path : {"/db/b.VBP", "/db/a.vbg", "/db/x/c.vbp", "/db/x/c.vbp.bak", "/db/vbp",
                           "/other/d.vbp", "/db/y.vbp/e.vbp"}) {
    system.Put(path, "");
  }
  EXPECT_THAT(FindProjectFiles(system, "/db"),
              ElementsAre("/db/a.vbg", "/db/b.VBP", "/db/x/c.vbp", "/db/y.vbp/e.vbp"));
  EXPECT_THAT(FindProjectFiles(system, "/none"), IsEmpty());
}

TEST(Environment, FilesOutsideTheTreeAreWrittenOnlyWithAgreement) {
  const struct {
    std::vector<std::string> agreed;
    bool written;
  } rows[] = {{{}, false}, {{"/plant/comm"}, false}, {{"/plant/comm", "/plant/common"}, true}};
  for (const auto& row : rows) {
    files::MemoryFileSystem system;
    system.Put("/plant/server/Pump.vbp", "Name=\"P\"\r\nClass=C; ..\\common\\c.cls\r\n");
    system.Put("/plant/common/c.cls", ClassProject::Header("C"));
    Options options;
    options.writable_folders = row.agreed;
    Environment environment(system, options);
    environment.Open("/plant/server/Pump.vbp");
    platform::CodeModule& module = *environment.FindProject("P")->FindComponent("C")->Module();
    EXPECT_EQ(module.CountOfLines(), 0);
    const auto edit = [&] { module.AddFromString("Public a"); };
    if (row.written) {
      edit();
    } else {
      const platform::Error error = ErrorOf(edit, "/plant/common/c.cls");
      EXPECT_EQ(error.number(), platform::kErrModuleNotEditable);
      EXPECT_EQ(error.kind(), ErrorKind::kRefused);
    }
    EXPECT_EQ(module.CountOfLines(), row.written ? 1 : 0);
  }
}

// The file is looked at at each change: it may have become a link since the last one.
TEST(Environment, AClassThatBecameALinkIsOutside) {
  ClassProject project("");
  project.Module().AddFromString("Public a");
  project.system.Put("/home/c.cls", project.system.Get(ClassProject::kPath));
  project.system.Remove(ClassProject::kPath);
  project.system.MakeLink("/home/c.cls", ClassProject::kPath);
  const std::string before = project.system.Get("/home/c.cls");
  ErrorOf([&] { project.Module().AddFromString("Public b"); }, ClassProject::kPath);
  EXPECT_EQ(project.system.Get("/home/c.cls"), before);
}

TEST(Environment, TellsWhatACodeWindowHasToShow) {
  std::vector<std::string> events;
  Options options;
  options.on_pane = [&](const PaneEvent& event) {
    events.push_back(event.component.Name() + " " + std::to_string(static_cast<int>(event.kind)));
  };
  ClassProject project("a\r\nb\r\n", options);
  const auto component = project.Component();
  component->Activate();
  platform::CodePane& pane = component->Module()->Pane();
  pane.SetTopLine(99);
  pane.SetSelection({2, 1, 2, 2});
  pane.Show();
  EXPECT_THAT(events, ElementsAre("CPump 0", "CPump 2", "CPump 3", "CPump 1"));
  EXPECT_EQ(pane.TopLine(), 2);
  EXPECT_EQ(component->Module()->Pane().GetSelection().end_column, 2);
}

TEST(Environment, CodePageOfTheProjects) {
  Options greek;
  greek.code_page = 1253;
  ClassProject project("Public \xD3\xF4\xDC\xE8\xEC\xE7\r\n", greek);  // Στάθμη
  EXPECT_TRUE(project.Module().FindMember("στάθμη"));
  project.Module().AddFromString("Public Ω");
  EXPECT_THAT(project.Written(), HasSubstr("Public \xD9\r\n"));
  files::MemoryFileSystem system;
  Options unknown;
  unknown.code_page = 437;
  Options western = greek;
  western.project_code_pages["/plant/PumpServer.vbp"] = 1252;
  EXPECT_TRUE(ClassProject("Public \xD3\r\n", western).Module().FindMember("ó"));
  ErrorOf([&] { Environment environment(system, unknown); }, "437");
}

// A unit of work over the class's project and its database.
class EnvironmentInUnit : public ::testing::Test {
 protected:
  EnvironmentInUnit() { unit_.Enlist(project_.environment); }
  platform::CodeModule& module() { return project_.Module(); }
  void ChangeByOthers(const std::string& code) {
    project_.system.Put(ClassProject::kPath, ClassProject::Header() + code);
  }
  std::string File() { return project_.system.Get(ClassProject::kPath); }

  const std::string code_ = "Option Explicit\r\n";
  ClassProject project_{code_};
  files::JournalledUnitOfWork unit_{project_.system, "/plant/plant.ovs", kAnyFile};
};

TEST_F(EnvironmentInUnit, CommitsAndRollsBack) {
  unit_.Begin();
  module().AddFromString("Public a");
  EXPECT_EQ(File(), ClassProject::Header() + code_);
  unit_.Commit();
  EXPECT_EQ(File(), ClassProject::Header() + code_ + "Public a\r\n");

  unit_.Begin();
  module().AddFromString("Public b");
  unit_.Rollback();
  EXPECT_FALSE(module().FindMember("b"));
  EXPECT_EQ(File(), ClassProject::Header() + code_ + "Public a\r\n");

  // What was edited before the unit began survives its rollback, and goes with the next commit.
  module().AddFromString("Public c");
  unit_.Begin();
  module().AddFromString("Public d");
  unit_.Rollback();
  EXPECT_TRUE(module().FindMember("c"));
  EXPECT_FALSE(module().FindMember("d"));
  unit_.Begin();
  unit_.Commit();
  EXPECT_EQ(File(), ClassProject::Header() + code_ + "Public a\r\nPublic c\r\n");
}

TEST_F(EnvironmentInUnit, SeesWhatOthersWroteBeforeItBegan) {
  EXPECT_EQ(module().CountOfLines(), 1);
  ChangeByOthers("Option Explicit\r\nPublic x\r\n");
  EXPECT_EQ(module().CountOfLines(), 2);
  unit_.Begin();
  module().AddFromString("Public y");
  unit_.Commit();
  EXPECT_EQ(File(), ClassProject::Header() + "Option Explicit\r\nPublic x\r\nPublic y\r\n");
}

TEST_F(EnvironmentInUnit, RefusesEditsOfStaleLines) {
  unit_.Begin();
  EXPECT_EQ(module().Lines(1, 1), "Option Explicit");
  const std::string theirs = "Option Base 0  \r\n";
  ChangeByOthers(theirs);
  const auto edit = [&] { module().InsertLines(1, "Public a"); };
  EXPECT_EQ(ErrorOf(edit, ClassProject::kPath).kind(), ErrorKind::kConflict);
  unit_.Rollback();
  EXPECT_EQ(File(), ClassProject::Header() + theirs);

  unit_.Begin();
  edit();
  ChangeByOthers(code_);  // behind our back, after the last edit
  EXPECT_EQ(ErrorOf([&] { unit_.Commit(); }, ClassProject::kPath).kind(), ErrorKind::kConflict);
  EXPECT_EQ(File(), ClassProject::Header() + code_);
  EXPECT_FALSE(module().FindMember("a"));

  // Edits that wait in memory are neither lost nor mixed with what others wrote.
  edit();
  ChangeByOthers(theirs);
  EXPECT_EQ(ErrorOf(edit, ClassProject::kPath).kind(), ErrorKind::kConflict);
  EXPECT_TRUE(module().FindMember("a"));
  project_.system.Remove(ClassProject::kPath);
  ErrorOf(edit, ClassProject::kPath);
}

// Same size, same time: only the bytes tell. The commit looks at them; then the lines are read
// anew.
TEST_F(EnvironmentInUnit, FindsAnEditThatDoesNotShow) {
  unit_.Begin();
  module().AddFromString("Public a");
  unit_.Commit();
  const std::int64_t modified = project_.system.Stamp(ClassProject::kPath)->modified_ns;
  const std::string theirs = "Option Explicit\r\nPublic z\r\n";
  ChangeByOthers(theirs);
  project_.system.SetModified(ClassProject::kPath, modified);
  unit_.Begin();
  module().AddFromString("Public b");
  EXPECT_EQ(ErrorOf([&] { unit_.Commit(); }, ClassProject::kPath).kind(), ErrorKind::kConflict);
  EXPECT_EQ(File(), ClassProject::Header() + theirs);
  unit_.Begin();
  EXPECT_TRUE(module().FindMember("z"));
  module().AddFromString("Public b");
  unit_.Commit();
  EXPECT_EQ(File(), ClassProject::Header() + theirs + "Public b\r\n");
}

TEST_F(EnvironmentInUnit, RefusesEditsOfReadOnlyFiles) {
  project_.system.SetReadOnly(ClassProject::kPath, true);
  EXPECT_EQ(module().CountOfLines(), 1);
  for (const auto& edit : std::vector<std::function<void()>>{
           [&] { module().InsertLines(1, "x"); }, [&] { module().ReplaceLine(1, "x"); },
           [&] { module().DeleteLines(1, 1); }, [&] { module().AddFromString("x"); }}) {
    EXPECT_EQ(ErrorOf(edit, ClassProject::kPath).number(), platform::kErrModuleNotEditable);
  }
  EXPECT_EQ(module().Lines(1, 1), "Option Explicit");
}

}  // namespace
}  // namespace vbfiles
