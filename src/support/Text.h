// Text as the clerk counts it: UTF-8 whose characters are code points. A byte that is no part of valid UTF-8
// counts as one character and is carried along unchanged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kxVsGrid::support {

/// Without leading and trailing blanks (the character ' ' alone; tabs and line ends stay).
std::string_view trim(std::string_view text);

/// How many characters the text has.
std::size_t characters(std::string_view text);

/// The byte at which character number `index` (from 0) starts; the text's size when it has fewer.
std::size_t byteOfCharacter(std::string_view text, std::size_t index);

/// The first `count` characters.
std::string_view left(std::string_view text, std::size_t count);

/// The code point of the text's first character; U+FFFD for a byte that is no valid UTF-8, 0 for no text.
char32_t firstCodePoint(std::string_view text);

/// The code point as UTF-8.
std::string utf8(char32_t codePoint);

/// How many bytes of the text, from its start on, are valid UTF-8.
std::size_t validBytes(std::string_view text);

/// Appends the text with U+FFFD for each byte that is no part of valid UTF-8.
void appendValid(std::string& out, std::string_view text);

/// The text without its line feeds and carriage returns, wherever they stand.
std::string withoutLineBreaks(std::string_view text);

/// The text without the line feeds and carriage returns at its end.
std::string_view withoutTrailingLineBreaks(std::string_view text);

/// What a box of one line makes of a pasted text: the line ends at its end go, the others, of whatever kind,
/// become blanks.
std::string inOneLine(std::string_view text);

/// Equal but for the case of ASCII letters.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// ASCII letters in lower case; everything else unchanged.
std::string lowerCase(std::string_view text);

/// True when a terminal or a headless screen gives the character two columns (CJK, full-width forms).
bool isWide(char32_t codePoint);
}  // namespace kxVsGrid::support
