// Turns the bytes of an XML file into UTF-8.
//
// XML files name their encoding themselves; the parser gets UTF-8 only, so that its offsets are
// offsets into one known text and bytes that are no text are found before it sees them.
#pragma once

#include <cstddef>
#include <string>

namespace xmi {

/// Why a text can't be used and where in the bytes given.
struct EncodingError {
  std::size_t offset = 0;
  std::string text;  ///< Empty when there is none.
};

/// Replaces the bytes of a file by the same text in UTF-8 without a byte order mark. Knows UTF-8,
/// UTF-16 with a byte order mark, ASCII, ISO-8859-1 and windows-1252, whose undefined bytes become
/// U+0081 and so on. On an error the bytes are left as they are.
EncodingError ToUtf8(std::string& bytes);

}  // namespace xmi
