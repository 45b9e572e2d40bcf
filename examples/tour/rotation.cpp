// A rotation: pairs of neighbouring numbers, turned by 45 degrees.
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>

#include "tour.h"

namespace tour {
namespace {

/// Rotates about the z axis, counter-clockwise.
CZEPHMatrix4 RotationAboutZ(double degrees) {
  const double angle = ZEPH_MathDegToRad(degrees);
  CZEPHMatrix4 m;
  m.loadIdentity();
  m(0, 0) = m(1, 1) = std::cos(angle);
  m(1, 0) = std::sin(angle);
  m(0, 1) = -m(1, 0);
  return m;
}

/// The inverse of a rotation is its transpose: the same 16 numbers, listed the other way.
CZEPHMatrix4 Inverse(const CZEPHMatrix4& rotation) {
  return CZEPHMatrix4(rotation.m_data, CZEPHMatrix4::RowMajor);
}

}  // namespace

void RotateNeighbours(const Context& context) {
  // Four pairs (this number, the next) are the columns of one matrix, so one product turns all.
  CZEPHDoubleArray numbers = context.numbers;
  CZEPHMatrix4 points(0.0);
  for (int j = 0; j < std::min(4, numbers.GetSize() - 1); ++j) {
    points(0, j) = numbers[j];
    points(1, j) = numbers[j + 1];
  }
  const CZEPHMatrix4 turn = RotationAboutZ(-45.0);
  const CZEPHMatrix4 turned = turn * points;
  const CZEPHMatrix4 back = Inverse(turn) * turned;

  std::cout << std::fixed << std::setprecision(2) << std::right;
  std::cout << "A number and the next, a pair a column:\n" << points;
  std::cout << "Turned by -45 degrees: level * sqrt(2) above, change / sqrt(2) below:\n" << turned;
  double worst = 0;
  for (int k = 0; k < 16; ++k)
    worst = std::max(worst, std::fabs(back.m_data[k] - points.m_data[k]));
  std::cout << "Turned back, the largest difference is " << std::scientific << worst << "\n";
  std::cout << std::defaultfloat << std::setprecision(6);
}

}  // namespace tour
