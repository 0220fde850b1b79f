// The bytes of a TLD file (docs/tld-format.md): a text list encoded and decoded in memory, so that
// the file handle only moves bytes and the decoder can be checked on any input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "services/text_list.h"

namespace vx::tld {

inline constexpr uint8_t MAGIC[4] = {'V', 'X', 'T', 'L'};
inline constexpr uint32_t VERSION = 1;

// Encodes the whole list into bytes. Gives the empty text on success, otherwise a message (a label
// too large for the 32-bit lengths of the format), with bytes left alone.
std::wstring encode(const Tvx_text_list_base& list, std::vector<uint8_t>& bytes);

// Replaces the content of list with the labels in data. Gives the empty text on success, otherwise a
// message that says what is wrong; the list then keeps the labels decoded completely before the defect.
// Every count is checked against the bytes that remain before anything is allocated for it.
std::wstring decode(const uint8_t* data, size_t size, Tvx_text_list_base& list);

}  // namespace vx::tld
