#include "screens/CheckPassword.h"

#include "frame/Text.h"
#include "records/Passwords.h"
#include "screens/frmEnterPwd.h"

namespace lantos {

int CheckPassword(Shop& shop, const std::string& password, std::string_view section) {
  const std::string wanted = TrimNull(password);
  if (wanted.empty()) return kPasswordNotNeeded;
  frmEnterPwd form(shop, section);
  form.ShowModal();
  if (!form.ok) return kPasswordCancelled;
  return Trim(form.Pwd.Text()) == wanted ? kPasswordRight : kPasswordWrong;
}

bool MayEnter(Shop& shop, Section section) {
  const int answer = CheckPassword(shop, shop.records.passwords.Password(section), LabelOf(section));
  return answer == kPasswordNotNeeded || answer == kPasswordRight;
}

}  // namespace lantos
