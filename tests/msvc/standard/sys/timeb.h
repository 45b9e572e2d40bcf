#include "../declarations.h"
