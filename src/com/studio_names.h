// SPDX-License-Identifier: MIT
// The members of the studio's objects by the role that they play for us, as OVFormulaEditor.idl has
// them. A studio that calls one otherwise is served by a change here.
#pragma once

namespace com::names {

// The add-in object.
inline constexpr wchar_t kRegisterPicture[] = L"RegisterPicture";
inline constexpr wchar_t kAddNode[] = L"AddNode";
inline constexpr wchar_t kRemoveNode[] = L"RemoveNode";
inline constexpr wchar_t kChildKeys[] = L"ChildKeys";
inline constexpr wchar_t kSelectedNode[] = L"SelectedNode";
inline constexpr wchar_t kUpdateNode[] = L"UpdateNode";
inline constexpr wchar_t kMainWindow[] = L"MainWindow";
inline constexpr wchar_t kRegisterEditor[] = L"RegisterEditor";
inline constexpr wchar_t kHandOverEditor[] = L"HandOverEditor";
// What a studio may lack.
inline constexpr wchar_t kSetNodeText[] = L"SetNodeText";
inline constexpr wchar_t kSelectNode[] = L"SelectNode";
inline constexpr wchar_t kActivateTree[] = L"ActivateTree";
inline constexpr wchar_t kNodeInformation[] = L"NodeInformation";
inline constexpr wchar_t kShowError[] = L"ShowError";
inline constexpr wchar_t kChooseItem[] = L"ChooseItem";
inline constexpr wchar_t kShowCodeWindow[] = L"ShowCodeWindow";
inline constexpr wchar_t kShowMessage[] = L"ShowMessage";
inline constexpr wchar_t kComponentList[] = L"ComponentList";
inline constexpr wchar_t kItems[] = L"OVItems";

// The component list.
inline constexpr wchar_t kOpen[] = L"Open";
inline constexpr wchar_t kAdd[] = L"Add";
inline constexpr wchar_t kRemove[] = L"Remove";
inline constexpr wchar_t kCommit[] = L"Commit";

// The item browser.
inline constexpr wchar_t kVariantType[] = L"VariantType";

// The report add-in.
inline constexpr wchar_t kShow[] = L"Show";

}  // namespace com::names
