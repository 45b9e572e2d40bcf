workflow static-portable static-avx2 static-avx512
