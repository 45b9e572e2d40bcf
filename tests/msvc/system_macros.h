// Macros that the system's header always defines, and the two that a program can suppress.
#define near
#define far
#define NEAR near
#define FAR far
#define small char
#define ERROR 0
#define GetObject GetObjectA
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
