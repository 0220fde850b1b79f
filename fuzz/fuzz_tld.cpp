// Fuzz target of the TLD reader. Whatever the bytes, decoding must neither crash nor read out of
// bounds nor allocate beyond what the input can hold; and a file that decodes without complaint must
// encode back to the very same bytes, since the format has one spelling for each list.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "services/text_list.h"
#include "services/tld_format.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Tvx_text_list_base list;
  const std::wstring error = vx::tld::decode(data, size, list);
  if (!error.empty()) return 0;
  std::vector<uint8_t> again;
  if (!vx::tld::encode(list, again).empty()) __builtin_trap();
  if (again.size() != size || (size && std::memcmp(again.data(), data, size) != 0)) __builtin_trap();
  return 0;
}
