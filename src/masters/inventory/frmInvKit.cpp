#include "masters/inventory/frmInvKit.h"

namespace lantos {

void EditKit(Shop& /*shop*/, std::string_view /*stockNumber*/) {}

}  // namespace lantos
