// A component is a float: a double stored in it is rounded, also where the compiler vectorises the
// loop around it and could skip the conversion to float and back.
#include <gtest/gtest.h>

#include <vector>

#include "graphics/values.h"

using namespace zeph::test;

static double RoundedToFloat(double x) {
  volatile float rounded = static_cast<float>(x);
  return rounded;
}

TEST(Rounding, ADoubleStoredInAComponentIsRoundedToFloat) {
  const auto in = Moderate<double>(1000, 91);
  std::vector<double> vector(in.size()), matrix(in.size()), record(in.size());
  for (std::size_t i = 0; i < in.size(); ++i) {
    CZEPHVector3D v;
    v.SetX(static_cast<float>(in[i]));
    vector[i] = v.GetX();
  }
  for (std::size_t i = 0; i < in.size(); ++i) {
    CZEPHMatrix4x4 m;
    m.SetEntry(5, static_cast<float>(in[i]));
    matrix[i] = m.GetEntry(5);
  }
  for (std::size_t i = 0; i < in.size(); ++i) {
    CZEPHVector3S s;
    s.x = static_cast<float>(in[i]);
    record[i] = s.x;
  }
  for (std::size_t i = 0; i < in.size(); ++i) {
    EXPECT_SAME_BITS(vector[i], RoundedToFloat(in[i])) << "i " << i;
    EXPECT_SAME_BITS(matrix[i], RoundedToFloat(in[i])) << "i " << i;
    EXPECT_SAME_BITS(record[i], RoundedToFloat(in[i])) << "i " << i;
  }
}

TEST(Rounding, SineAndCosineAreRoundedToFloatBeforeUse) {
  const auto angles = Moderate<double>(1000, 92, -720, 720);
  std::vector<double> sines(angles.size()), cosines(angles.size());
  for (std::size_t i = 0; i < angles.size(); ++i) {
    const CZEPHVector3D v = CZEPHVector3D(1, 0, 0).GetRotatedZ(angles[i]);
    cosines[i] = v.x;
    sines[i] = v.y;
  }
  for (std::size_t i = 0; i < angles.size(); ++i) {
    EXPECT_SAME_BITS(sines[i], RoundedToFloat(oracle::SineInDouble(angles[i]))) << "i " << i;
    EXPECT_SAME_BITS(cosines[i], RoundedToFloat(oracle::CosineInDouble(angles[i]))) << "i " << i;
  }
}

TEST(Rounding, AnglesFromComponentsAreWidenedFloats) {
  const auto angles = Moderate<double>(3000, 93, -360, 360);
  for (std::size_t i = 0; i + 2 < angles.size(); i += 3) {
    CZEPHMatrix4x4 m;
    m.SetRotationPartEuler(CZEPHVector3D(static_cast<float>(angles[i]),
                                         static_cast<float>(angles[i + 1]),
                                         static_cast<float>(angles[i + 2])));
    EXPECT_TRUE(
        Same(m, oracle::WithEuler(oracle::Identity(), RoundedToFloat(angles[i]),
                                  RoundedToFloat(angles[i + 1]), RoundedToFloat(angles[i + 2]))))
        << "i " << i;
  }
}
