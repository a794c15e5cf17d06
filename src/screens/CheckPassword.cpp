#include "screens/CheckPassword.h"

#include "frame/Text.h"
#include "records/Passwords.h"
#include "screens/frmEnterPwd.h"

namespace lantos {

PasswordAnswer CheckPassword(Shop& shop, const std::string& password, std::string_view section) {
  const std::string wanted = TrimNull(password);
  if (wanted.empty()) return PasswordAnswer::NotNeeded;
  frmEnterPwd form(shop, section);
  form.ShowModal();
  if (!form.ok) return PasswordAnswer::Cancelled;
  return Trim(form.Pwd.Text()) == wanted ? PasswordAnswer::Right : PasswordAnswer::Wrong;
}

bool MayEnter(Shop& shop, Section section) {
  const PasswordAnswer answer = CheckPassword(shop, shop.records.passwords.Password(section), LabelOf(section));
  return answer == PasswordAnswer::NotNeeded || answer == PasswordAnswer::Right;
}

}  // namespace lantos
