// Text helpers of the PROJ string parser.
// Temporary: these stand in for the support layer's string helpers until that layer is in the tree.
#pragma once

#include <string>
#include <vector>

namespace vx::proj4_text {

std::string trim(const std::string& text);
bool str2dbl(const char* text, double& value);
bool str2int(const char* text, int& value);
std::string int2str(int value);
// Case-insensitive comparison of the two texts, each trimmed first; 0 when equal.
int trim_stricmp(const char* a, const char* b);
int stricmp(const char* a, const char* b);
// Splits the text at every separator character; empty tokens are kept, and there is always one token.
std::vector<std::string> divide(const std::string& text, const char* separators);

}  // namespace vx::proj4_text
