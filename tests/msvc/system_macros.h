// Macros that the system's header defines whatever a program asks of it, and the two that it need not.
#define near
#define far
#define small char
#define ERROR 0
#define GetObject GetObjectA
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
