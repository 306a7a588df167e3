// SPDX-License-Identifier: MIT
#include "com/classes.h"

#include "com/command_object.h"
#include "com/connection_object.h"
#include "com/recordset_object.h"
#include "com/vbe_object.h"

namespace com {

namespace {

// {745E7C68-20FA-4D6C-B941-1549FA5613F2}
constexpr CLSID kConnectionId = {
    0x745e7c68, 0x20fa, 0x4d6c, {0xb9, 0x41, 0x15, 0x49, 0xfa, 0x56, 0x13, 0xf2}};
// {5159904D-D40B-408D-9F7D-C764AE4728EE}
constexpr CLSID kRecordsetId = {
    0x5159904d, 0xd40b, 0x408d, {0x9f, 0x7d, 0xc7, 0x64, 0xae, 0x47, 0x28, 0xee}};
// {33F0EFA4-8FBA-4F68-A556-89DEA49B4E1A}
constexpr CLSID kCommandId = {
    0x33f0efa4, 0x8fba, 0x4f68, {0xa5, 0x56, 0x89, 0xde, 0xa4, 0x9b, 0x4e, 0x1a}};
// {90116F76-3399-4530-938C-91D5F58BE93F}
constexpr CLSID kVbeId = {
    0x90116f76, 0x3399, 0x4530, {0x93, 0x8c, 0x91, 0xd5, 0xf5, 0x8b, 0xe9, 0x3f}};

constexpr ServedClass kClasses[] = {
    {&kConnectionId, L"Connection", L"OrvanaStudio formula editor: database connection",
     ConnectionObject::Create},
    {&kRecordsetId, L"Recordset", L"OrvanaStudio formula editor: database rows",
     RecordsetObject::Create},
    {&kCommandId, L"Command", L"OrvanaStudio formula editor: query with parameters",
     CommandObject::Create},
    {&kVbeId, L"VBE", L"OrvanaStudio formula editor: Visual Basic projects", VbeObject::Create},
};

}  // namespace

std::span<const ServedClass> ScriptClasses() { return kClasses; }

}  // namespace com
