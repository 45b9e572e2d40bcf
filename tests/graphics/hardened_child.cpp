// Breaks one precondition, or keeps it, as the argument names.
#include "graphics.h"

#include "support/breach.h"

namespace {

using zeph::test::Null;
using zeph::test::Use;

const zeph::test::Breach kBreaches[] = {
    {"two",
     [] {
       CZEPHVector2D v(Null<const float>());
       Use(v);
     }},
    {"three",
     [] {
       CZEPHVector3D v(Null<const float>());
       Use(v);
     }},
    {"four",
     [] {
       CZEPHVector4D v(Null<const float>());
       Use(v);
     }},
    {"matrix",
     [] {
       CZEPHMatrix4x4 m(Null<const float>());
       Use(m);
     }},
    {"add",
     [] {
       CZEPHVector3S a;
       ZEPH_AddVectors(&a, Null<CZEPHVector3S>(), &a);
     }},
    {"copy",
     [] {
       CZEPHVector3S a;
       ZEPH_CopyVector(&a, Null<CZEPHVector3S>());
     }},
    {"cross",
     [] {
       CZEPHVector3S a;
       ZEPH_CrossVectors(&a, &a, Null<CZEPHVector3S>());
     }},
    {"dot",
     [] {
       CZEPHVector3S a;
       ZEPH_DotVectors(Null<CZEPHVector3S>(), &a);
     }},
    {"scale", [] { ZEPH_ScaleVector(Null<CZEPHVector3S>(), 2.0f); }},
    {"indices",
     [] {
       CZEPHMatrix4x4 m;
       m.SetEntry(16, 1.0f);
       m.GetEntry(-1);
       m.GetRow(4);
       m.GetColumn(-1);
     }},
    {"floats",
     [] {
       const float p[16] = {};
       Use(CZEPHVector3D(p));
       Use(CZEPHMatrix4x4(p));
     }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
