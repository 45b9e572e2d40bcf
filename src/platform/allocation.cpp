// SPDX-License-Identifier: MIT
#include "platform/allocation.h"

namespace zeph::platform {

void DiscardMemoryException(CMemoryException* exception) {
  char text[255];
  exception->GetErrorMessage(text, sizeof text);
  exception->Delete();
}

}  // namespace zeph::platform
