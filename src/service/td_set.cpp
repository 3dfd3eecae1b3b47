#include "service/td_set.h"

#include "service/request.h"
#include "windows/frm_adjuct.h"

namespace td {

void TDSet::ShowSettings(const std::string& PromptString, std::int16_t TranType) {
  const Turn turn(platform_);
  Context().New_PromptString = PromptString;
  Context().New_TranType = TranType;
  frmAdjuct(platform_, Context()).ShowModal();
}

}  // namespace td
