// Written by tools/portable_math/find_hard_cases.cpp, which says where it looked.
// clang-format off
#ifndef ZEPH_TESTS_PORTABLE_MATH_HARD_CASES_H
#define ZEPH_TESTS_PORTABLE_MATH_HARD_CASES_H

namespace zeph::test {

struct HardCase {
  double x, result;
};

/// Nearest to the middle, and how near in units of the last place.
constexpr HardCase kHardSines[] = {
    {0x1.5p-20, 0x1.4fffffffff9f9p-20},  // 2^-32.9
    {0x1.bp-20, 0x1.afffffffff33p-20},  // 2^-31.1
    {0x1.a53d1c923363ap+998, 0x1.626591b6d9a9ap-1},  // 2^-25.2
    {0x1.d91b8ec99b41bp+693, -0x1.79da8b349062dp-1},  // 2^-22.5
    {0x1.14p-17, 0x1.13fffffff2a21p-17},  // 2^-22.4
    {0x1.3528e8ffbe56ap-13, 0x1.3528e8ecf4dc8p-13},  // 2^-22.2
    {0x1.6939dd4b8ec06p-10, 0x1.6939d5cda86f6p-10},  // 2^-22.0
    {0x1.fad03b13afe11p+5, 0x1.fca5acf49ab75p-2},  // 2^-21.8
    {0x1.2cp-17, 0x1.2bffffffeed58p-17},  // 2^-21.8
    {0x1.7c1eaaba26aacp+9, -0x1.a74421cb5aa5ap-6},  // 2^-21.7
    {0x1.905473790622bp+377, -0x1.5cbbfa2c5a0cp-1},  // 2^-21.6
    {0x1.8d21a9d03ef5ap+311, -0x1.279e26b8d42adp-3},  // 2^-21.3
    {0x1.44p-17, 0x1.43ffffffea603p-17},  // 2^-21.2
    {0x1.e869ca9411f2p-2, 0x1.d61aa1b37ac3cp-2},  // 2^-21.1
    {0x1.dc306a186e8dcp+770, 0x1.6542510107e9fp-1},  // 2^-21.0
    {0x1.5cp-17, 0x1.5bffffffe534ap-17},  // 2^-20.7
    {0x1.7fbdbbad8967dp-18, 0x1.7fbdbbad806c8p-18},  // 2^-20.6
    {0x1.70d5bb95da694p-15, 0x1.70d5bb93dbfe9p-15},  // 2^-20.6
    {0x1.ab72db6751acfp-2, 0x1.9f2486bb98eeep-2},  // 2^-20.4
    {0x1.3da7eb2aa59abp-5, 0x1.3d938a9289529p-5},  // 2^-20.3
    {0x1.192ff978fb32ep+11, 0x1.e5b7d838b77b9p-4},  // 2^-20.3
    {0x1.74p-17, 0x1.73ffffffdf455p-17},  // 2^-20.2
    {0x1.860c0bbf85cd2p+583, -0x1.3b4b39a5bf747p-1},  // 2^-20.2
    {0x1.75308a80561dep+469, 0x1.9ad9c4b46ab64p-1},  // 2^-20.1
};

/// Nearest to the middle, and how near in units of the last place.
constexpr HardCase kHardCosines[] = {
    {0x1.8c104811c9addp-17, 0x1.ffffffff66cf7p-1},  // 2^-25.3
    {0x1.56588501d6427p+273, -0x1.61cac89228a4cp-1},  // 2^-22.9
    {0x1.66895f354364ep-18, 0x1.ffffffffe09dcp-1},  // 2^-22.8
    {0x1.480dc43b30912p-6, 0x1.ffe5ba050da35p-1},  // 2^-22.2
    {0x1.f6b6b543a5c42p+8, 0x1.ff1cdf02551dep-1},  // 2^-21.6
    {0x1.b5377da626ff8p+518, -0x1.fabe1a15fb679p-1},  // 2^-21.3
    {0x1.9c3eaaf5b2f8cp+135, 0x1.34d2d2c73871fp-2},  // 2^-20.8
    {0x1.601a8b701f897p+58, -0x1.fd9adfff6b693p-1},  // 2^-20.5
    {0x1.f0f5c603d8ba3p+845, -0x1.196faa374c99bp-1},  // 2^-20.2
    {0x1.21f43c2c25ae3p-11, 0x1.fffffade5a9ebp-1},  // 2^-20.1
    {0x1.b1f800d7f7c1dp+2, 0x1.c1ea72903dd95p-1},  // 2^-20.1
    {0x1.9aa0b71368037p-7, 0x1.fff5b56c163ebp-1},  // 2^-20.0
    {0x1.d0b5f4ecf8f3ep+33, -0x1.b0bb5f67bc19fp-4},  // 2^-19.8
    {0x1.13c3af3504299p-19, 0x1.fffffffffb5bcp-1},  // 2^-19.8
    {0x1.14529740bd56cp+842, 0x1.f4353ee448cabp-4},  // 2^-19.7
    {0x1.866ac610770ebp+5, 0x1.b7443fa32d7f4p-4},  // 2^-19.4
    {0x1.06e747d7a1377p-16, 0x1.fffffffef201cp-1},  // 2^-19.4
    {0x1.64d4ec60dc3adp+566, 0x1.699fa5f563119p-2},  // 2^-19.2
    {0x1.682e255bc0abbp+983, -0x1.750ff87776399p-2},  // 2^-19.1
    {0x1.7f92d28d1ebccp-6, 0x1.ffdc14e1216fp-1},  // 2^-19.1
    {0x1.5ae59b7ad4f66p-3, 0x1.f8ac37e8585a9p-1},  // 2^-19.1
    {0x1.309b45ef19fdp+661, -0x1.ac6793052697cp-3},  // 2^-19.0
    {0x1.9b8caebda80e1p+764, -0x1.4d4adf43abee4p-1},  // 2^-18.9
    {0x1.10b3182a9ac37p+112, 0x1.ebda000f3be06p-1},  // 2^-18.9
};

/// Next to multiples of pi/2.
constexpr HardCase kSinesNextToMultiples[] = {
    {0x1.6ac5b262ca1ffp+850, -0x1.14ae72e6ba22fp-60},  // 2^-1.1
    {0x1.6c6cbc45dc8dep+6, -0x1.6d61b58c99c43p-60},  // 2^-1.2
    {0x1.6ac5b262ca1ffp+851, 0x1.14ae72e6ba22fp-59},  // 2^-1.1
    {0x1.6c6cbc45dc8dep+7, 0x1.6d61b58c99c43p-59},  // 2^-1.2
    {0x1.b951f1572eba5p+24, 0x1.f54f5227a4e84p-59},  // 2^-1.0
    {0x1.504cac51f1eafp+132, 0x1.0cb604d34f341p-58},  // 2^-1.5
    {0x1.6ac5b262ca1ffp+852, 0x1.14ae72e6ba22fp-58},  // 2^-1.1
    {0x1.e009c53148be1p+992, 0x1.295a3b0a64b1dp-58},  // 2^-2.2
    {0x1.6c6cbc45dc8dep+8, 0x1.6d61b58c99c43p-58},  // 2^-1.2
    {0x1.4c96c11134d36p+578, -0x1.6ec67bcf77522p-58},  // 2^-2.3
    {0x1.cfe482285f8edp+861, 0x1.d08f59c32bfa3p-58},  // 2^-1.6
    {0x1.db41f3cb71d7bp+681, 0x1.e09878d22e29dp-58},  // 2^-1.6
    {0x1.e7e44a78ac18cp+198, -0x1.ed415f54c8cb8p-58},  // 2^-2.6
    {0x1.b951f1572eba5p+25, -0x1.f54f5227a4e84p-58},  // 2^-1.0
    {0x1.c45cd11154dfdp+296, 0x1.01242876d7c1bp-57},  // 2^-5.7
    {0x1.504cac51f1eafp+133, -0x1.0cb604d34f341p-57},  // 2^-1.5
    {0x1.83009e2e9e2ebp+615, -0x1.104830400912ap-57},  // 2^-2.0
    {0x1.b2196364d750bp+254, -0x1.12bbbe07f2de1p-57},  // 2^-1.7
    {0x1.6ac5b262ca1ffp+853, 0x1.14ae72e6ba22fp-57},  // 2^-1.1
    {0x1.e009c53148be1p+993, -0x1.295a3b0a64b1dp-57},  // 2^-2.2
    {0x1.69eab0985179bp+247, 0x1.61ecec9c577fdp-57},  // 2^-2.0
    {0x1.6c6cbc45dc8dep+9, 0x1.6d61b58c99c43p-57},  // 2^-1.2
    {0x1.4c96c11134d36p+579, 0x1.6ec67bcf77522p-57},  // 2^-2.3
    {0x1.782b7a20df6d4p+68, 0x1.7a6500ca6d83bp-57},  // 2^-2.0
};

/// Next to multiples of pi/2.
constexpr HardCase kCosinesNextToMultiples[] = {
    {0x1.6ac5b262ca1ffp+849, -0x1.14ae72e6ba22fp-61},  // 2^-1.1
    {0x1.6c6cbc45dc8dep+5, -0x1.6d61b58c99c43p-61},  // 2^-1.2
    {0x1.b951f1572eba5p+23, -0x1.f54f5227a4e84p-60},  // 2^-1.0
    {0x1.504cac51f1eafp+131, -0x1.0cb604d34f341p-59},  // 2^-1.5
    {0x1.e009c53148be1p+991, 0x1.295a3b0a64b1dp-59},  // 2^-2.2
    {0x1.4c96c11134d36p+577, 0x1.6ec67bcf77522p-59},  // 2^-2.3
    {0x1.cfe482285f8edp+860, -0x1.d08f59c32bfa3p-59},  // 2^-1.6
    {0x1.db41f3cb71d7bp+680, 0x1.e09878d22e29dp-59},  // 2^-1.6
    {0x1.e7e44a78ac18cp+197, 0x1.ed415f54c8cb8p-59},  // 2^-2.6
    {0x1.c45cd11154dfdp+295, 0x1.01242876d7c1bp-58},  // 2^-5.7
    {0x1.83009e2e9e2ebp+614, -0x1.104830400912ap-58},  // 2^-2.0
    {0x1.b2196364d750bp+253, 0x1.12bbbe07f2de1p-58},  // 2^-1.7
    {0x1.69eab0985179bp+246, -0x1.61ecec9c577fdp-58},  // 2^-2.0
    {0x1.782b7a20df6d4p+67, -0x1.7a6500ca6d83bp-58},  // 2^-2.0
    {0x1.66bd5424e5655p+90, -0x1.7a6b2243e72f6p-58},  // 2^-1.9
    {0x1.4117573397d42p+939, -0x1.cccb7fc6dfae9p-58},  // 2^-1.6
    {0x1.61a3db8c8d129p+1021, -0x1.dd15f96b823f2p-58},  // 2^-1.0
    {0x1.8b28676cdcc5bp+555, -0x1.eca040e98a76fp-58},  // 2^-1.5
    {0x1.5ad5a62cb1cc9p+143, -0x1.1fa59d4990bd6p-57},  // 2^-2.2
    {0x1.dfa8d18f2b3eep+689, -0x1.28904e0d7f525p-57},  // 2^-1.1
    {0x1.0539b48d14c55p+182, -0x1.35481dbfbe4fcp-57},  // 2^-3.7
    {0x1.b88cbb4e32576p+487, 0x1.38ffe4e7e3a15p-57},  // 2^-1.1
    {0x1.e3ca9b6c655cbp+408, 0x1.3b5dbbbe33decp-57},  // 2^-1.3
    {0x1.6e8d778c94d66p+794, -0x1.3c408220c4c3fp-57},  // 2^-1.4
};

/// Nearest to the middle.
constexpr HardCase kHardLogarithms[] = {
    {0x1.9a387920f7a2cp-4, -0x1.ffa9d16f19eb5p-1},  // 2^-22.8
    {0x1.ecad92a7c927p-358, -0x1.adf00a8b8da2ap+6},  // 2^-22.4
    {0x1.426bf3c7d7c2bp-489, -0x1.2634fbcd50db7p+7},  // 2^-22.4
    {0x1.b9b92e6c68c69p-320, -0x1.805ee9a83a417p+6},  // 2^-21.6
    {0x1.f281ea33d01a7p-3, -0x1.3a316acca38ffp-1},  // 2^-21.3
    {0x1.cb2bed0c7e6e6p+4, 0x1.7535fc9d55432p+0},  // 2^-20.9
    {0x1.708faea0cfc26p+119, 0x1.1fd8c2390ea34p+5},  // 2^-20.9
    {0x1.e1b8a206f759bp+1, 0x1.26b32eec40361p-1},  // 2^-20.9
    {0x1.d684dbb8cf02p-4, -0x1.e12b362a5e88cp-1},  // 2^-20.9
    {0x1.aa6c43804e0e2p+2, 0x1.a5b6d5ee7de51p-1},  // 2^-20.5
    {0x1.1245777947f22p-1, -0x1.15987d0f6108cp-2},  // 2^-19.8
    {0x1.65b50fb4be32cp+2, 0x1.7ea45ebb19e75p-1},  // 2^-19.7
    {0x1.94c99aeebb71fp+3, 0x1.1a21ba2a474fep+0},  // 2^-19.7
    {0x1.52d1b30b48353p+4, 0x1.536ac5747eb54p+0},  // 2^-19.7
    {0x1.e854530c8552p-507, -0x1.30aef7e087cecp+7},  // 2^-19.6
    {0x1.12a5191432681p+626, 0x1.78f35baf88662p+7},  // 2^-19.6
    {0x1.6fda6b109f589p-768, -0x1.ce11344b6d06cp+7},  // 2^-19.6
    {0x1.2b1f6985e82bdp+4, 0x1.45900ec2229ep+0},  // 2^-19.6
    {0x1.7e8003606e24bp+4, 0x1.60e6217385926p+0},  // 2^-19.5
    {0x1.1274d1898c104p-4, -0x1.2c83d6de16e5ep+0},  // 2^-19.5
    {0x1.5a660ab849f92p-3, -0x1.8b23512b66c37p-1},  // 2^-19.4
    {0x1.395d0eec0f3e6p-550, -0x1.4af516bed4614p+7},  // 2^-19.3
    {0x1.ccd78192f6c5fp+25, 0x1.f1fceaacc963bp+2},  // 2^-19.3
    {0x1.cbb0ae94f2c7fp+4, 0x1.75561ce6ad62cp+0},  // 2^-19.2
};

/// Nearest to the middle of two floats.
constexpr HardCase kHardTangents[] = {
    {0x1.02e9bap+2, 0x1.453662p+0},  // 2^-28.2
    {0x1.78b08cp+11, 0x1.c9f41cp-1},  // 2^-27.9
    {0x1.3240bcp-3, 0x1.348e66p-3},  // 2^-27.4
    {0x1.ccfeb2p+2, 0x1.50191p+0},  // 2^-27.4
    {0x1.3c110ap+11, -0x1.ee29acp-2},  // 2^-26.8
    {0x1.713744p-12, 0x1.713744p-12},  // 2^-26.5
    {0x1.60aba4p+8, 0x1.0e0becp+0},  // 2^-26.1
    {0x1.7e3316p+8, -0x1.d90a28p+0},  // 2^-26.0
    {0x1.bcdc1p+4, -0x1.047858p-1},  // 2^-25.4
    {0x1.45fde8p-2, 0x1.51785ep-2},  // 2^-25.2
    {0x1.f7121ep+11, 0x1.81533p-3},  // 2^-24.8
    {0x1.0e28a6p+4, 0x1.340754p+1},  // 2^-24.6
    {0x1.172d52p+3, -0x1.afaf88p-1},  // 2^-24.5
    {0x1.6457aep+12, -0x1.1eda54p-1},  // 2^-24.5
    {0x1.bcee6ep-11, 0x1.bcee74p-11},  // 2^-24.4
    {0x1.fe2b8p-5, 0x1.fed49cp-5},  // 2^-24.4
    {0x1.2e40b6p+1, -0x1.fabf7ap-1},  // 2^-24.3
    {0x1.a148d8p-5, 0x1.a1a556p-5},  // 2^-24.1
    {0x1.2698e4p+7, -0x1.7d0c18p-2},  // 2^-23.9
    {0x1.bdc6fap+9, -0x1.8b924ap-1},  // 2^-23.8
    {0x1.409878p+7, 0x1.3a39aep-4},  // 2^-23.8
    {0x1.d9abc8p-5, 0x1.da331ap-5},  // 2^-23.7
    {0x1.b50234p+1, 0x1.1e3304p-2},  // 2^-23.7
    {0x1.02731p+2, 0x1.406902p+0},  // 2^-23.7
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_PORTABLE_MATH_HARD_CASES_H
