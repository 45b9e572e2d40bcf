// Breaks one precondition, or keeps it, as the argument names.
#include <vector>

#include "batch.h"
#include "support/breach.h"

namespace {

using zeph::test::Null;

std::vector<CZEPHVector3D> Points() {
  return std::vector<CZEPHVector3D>(20, CZEPHVector3D(1, 2, 3));
}

const zeph::test::Breach kBreaches[] = {
    {"null in",
     [] {
       auto out = Points();
       ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), Null<CZEPHVector3D>(), out.data(), 20);
     }},
    {"null out",
     [] {
       auto in = Points();
       ZEPH_BatchNormalize(in.data(), Null<CZEPHVector3D>(), 20);
     }},
    {"null points",
     [] {
       CZEPHVector3D low, high;
       ZEPH_BatchBounds(Null<CZEPHVector3D>(), 1, low, high);
     }},
    {"shifted up",
     [] {
       auto in = Points();
       ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), in.data(), in.data() + 1, 19);
     }},
    {"shifted down",
     [] {
       auto in = Points();
       ZEPH_BatchRotateAxis(0.0, in[0], in.data() + 19, in.data(), 20);
     }},
    {"second operand",
     [] {
       auto a = Points(), b = Points();
       ZEPH_BatchCross(a.data(), b.data() + 2, b.data(), 18);
     }},
    {"dot",
     [] {
       auto a = Points(), b = Points();
       ZEPH_BatchDot(a.data(), b.data(), &b[3].x, 20);
     }},
    {"beside",
     [] {
       auto in = Points();
       ZEPH_BatchNormalize(in.data(), in.data() + 10, 10);
       ZEPH_BatchNormalize(in.data() + 10, in.data(), 10);
     }},
    {"in place",
     [] {
       auto in = Points();
       ZEPH_BatchNormalize(in.data(), in.data(), 20);
       ZEPH_BatchCross(in.data(), in.data() + 1, in.data() + 1, 1);
       ZEPH_BatchNormalize(Null<CZEPHVector3D>(), Null<CZEPHVector3D>(), 0);
     }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
