// SPDX-License-Identifier: MIT
// The setting, and the log that says what came of it.
#include "project/provider_setting.h"

#include <gtest/gtest.h>

#include "files/memory_file_system.h"
#include "project/event_log.h"
#include "project/file_settings_service.h"
#include "texts/text_table.h"

namespace project {
namespace {

TEST(ProviderSetting, IsAutoUnlessItSaysOtherwise) {
  files::MemoryFileSystem system;
  FileSettingsService settings(system, "/config");
  EXPECT_EQ(ProviderOf(settings), Provider::kAuto);
  const std::pair<const char*, Provider> cases[] = {{"jet", Provider::kJet},
                                                    {"Own", Provider::kOwn},
                                                    {"AUTO", Provider::kAuto},
                                                    {"", Provider::kAuto},
                                                    {"odbc", Provider::kAuto}};
  for (const auto& [text, provider] : cases) {
    settings.Override(texts::kLanguageKey, "Provider", text);
    EXPECT_EQ(ProviderOf(settings), provider) << text;
  }
}

TEST(EventLog, AddsLinesAndBeginsAnewWhenItIsLarge) {
  files::MemoryFileSystem system;
  AddToLog(system, "/state/ovformula/log", 0, "first\r\nline");
  AddToLog(system, "/state/ovformula/log", 61, "Füllstand");
  EXPECT_EQ(system.Get("/state/ovformula/log"),
            "1970-01-01T00:00:00Z first  line\n1970-01-01T00:01:01Z Füllstand\n");
  AddToLog(system, "/state/ovformula/log", 0, "anew", 10);
  EXPECT_EQ(system.Get("/state/ovformula/log"), "1970-01-01T00:00:00Z anew\n");
  AddToLog(system, "/state/ovformula/log/below", 0, "nobody fails because of a log");
}

}  // namespace
}  // namespace project
