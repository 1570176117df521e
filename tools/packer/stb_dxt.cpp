// The one place where stb_dxt is compiled.
#include <cstring> // stb_dxt calls memcpy without declaring it

#define STB_DXT_IMPLEMENTATION
#include <stb/stb_dxt.h>
