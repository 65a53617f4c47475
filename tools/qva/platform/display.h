// The library's texts are CP949; a terminal may expect another code set.
#pragma once

#include <cstdio>
#include <string>

// The text converted from CP949 to the terminal's code set where that
// differs and a converter exists; otherwise the bytes as they are.
std::string ForDisplay(const char* p, int n);

// True when the stream is a terminal (a progress bar is worth drawing).
bool IsTerminal(std::FILE* stream);
