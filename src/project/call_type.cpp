// SPDX-License-Identifier: MIT
#include "project/call_type.h"

#include "project/flow_texts.h"
#include "store/rules.h"

namespace project {

std::string CallTypeName(std::int32_t type, const texts::TextTable& texts) {
  return store::IsCallType(type) ? texts.Text(store::kFirstCallTypeText + type)
                                 : std::to_string(type);
}

std::string CallTypeText(const store::FormulaRecord& formula, const texts::TextTable& texts) {
  std::string text = CallTypeName(formula.type, texts);
  if (formula.type != store::kAsynchronous) return text;
  return text + ", " + texts.Text(kFlowScanTime, {{"<Time>", std::to_string(formula.scan_time)}});
}

}  // namespace project
