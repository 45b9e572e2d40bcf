// SPDX-License-Identifier: MIT
#include <iomanip>
#include <iostream>

#include "linalg.h"

void CZEPHVector::Display(std::FILE* stream, char separator) {
  if (!stream) return;
  for (std::size_t i = 0; i < size(); ++i)
    std::fprintf(stream, "%12.4lf%c ", m_pData[i], separator);
  std::fputs("\n", stream);
}

void CZEPHVector::Display() {
  for (std::size_t i = 0; i < size(); ++i) {
    std::cout.setf(std::ios_base::right | std::ios_base::fixed | std::ios_base::showpoint);
    std::cout << std::setprecision(4) << std::setw(12) << m_pData[i];
  }
  std::cout << std::endl;
}
