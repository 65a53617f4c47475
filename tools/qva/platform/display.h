// The library's texts are CP949; a terminal may expect another code set.
#pragma once

#include <string>

// The text converted from CP949 to the terminal's code set where that
// differs and a converter exists; otherwise the bytes as they are.
std::string ForDisplay(const char* p, int n);
