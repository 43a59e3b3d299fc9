// Conversion between UTF-8 and UTF-16. Lengths are given and above 0. Not here: other code pages, terminated input,
// default characters.
#include "platform/winapi/subset/System.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <limits>
#include <string_view>

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstBeyondUnit = 0x10000;
constexpr char32_t firstHighSurrogate = 0xD800;
constexpr char32_t firstLowSurrogate = 0xDC00;
constexpr char32_t lastLowSurrogate = 0xDFFF;

// One character, or the longest malformed piece that could still have become one.
struct Piece {
    char32_t character;
    std::size_t length;
    bool malformed;
};

// Which bytes may stand first, and which second after them: this alone keeps out overlong forms, surrogates and
// characters beyond the last.
struct LeadByte {
    unsigned char first;
    unsigned char last;
    unsigned char length;
    unsigned char lowestSecond;
    unsigned char highestSecond;
    unsigned char payload;
};

constexpr LeadByte leadBytes[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF, 0x1F}, {0xE0, 0xE0, 3, 0xA0, 0xBF, 0x0F}, {0xE1, 0xEC, 3, 0x80, 0xBF, 0x0F},
    {0xED, 0xED, 3, 0x80, 0x9F, 0x0F}, {0xEE, 0xEF, 3, 0x80, 0xBF, 0x0F}, {0xF0, 0xF0, 4, 0x90, 0xBF, 0x07},
    {0xF1, 0xF3, 4, 0x80, 0xBF, 0x07}, {0xF4, 0xF4, 4, 0x80, 0x8F, 0x07},
};

constexpr unsigned char lowestTrail = 0x80;
constexpr unsigned char highestTrail = 0xBF;
constexpr unsigned char trailPayload = 0x3F;
constexpr unsigned trailBits = 6;

Piece DecodeSequence(std::string_view text, const LeadByte &lead) {
    char32_t character = static_cast<unsigned char>(text.front()) & lead.payload;
    unsigned char lowest = lead.lowestSecond;
    unsigned char highest = lead.highestSecond;
    for (std::size_t index = 1; index < lead.length; ++index) {
        const unsigned char byte = index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
        if (byte < lowest || byte > highest) {
            return {replacement, index, true};
        }
        character = (character << trailBits) | (byte & trailPayload);
        lowest = lowestTrail;
        highest = highestTrail;
    }
    return {character, lead.length, false};
}

Piece DecodeUtf8(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte < lowestTrail) {
        return {byte, 1, false};
    }
    for (const LeadByte &lead : leadBytes) {
        if (byte >= lead.first && byte <= lead.last) {
            return DecodeSequence(text, lead);
        }
    }
    return {replacement, 1, true};
}

Piece DecodeUtf16(std::u16string_view text) {
    const char32_t unit = text.front();
    if (unit < firstHighSurrogate || unit > lastLowSurrogate) {
        return {unit, 1, false};
    }
    const char32_t next = text.size() > 1 ? text[1] : 0;
    if (unit >= firstLowSurrogate || next < firstLowSurrogate || next > lastLowSurrogate) {
        return {replacement, 1, true};
    }
    return {firstBeyondUnit + ((unit - firstHighSurrogate) << 10U) + (next - firstLowSurrogate), 2, false};
}

// Counts what is written to it; without a capacity it only counts.
template<typename Unit>
class Output {
public:
    Output(Unit *buffer, int capacity) : buffer_(buffer), capacity_(capacity) {}

    void Put(char32_t unit) {
        if (count_ < capacity_) {
            buffer_[count_] = static_cast<Unit>(unit);
        }
        ++count_;
    }

    // 0 where the buffer was too small, or the count is beyond the platform's.
    [[nodiscard]] int Count() const {
        const bool fits = capacity_ == 0 || count_ <= capacity_;
        return fits && count_ <= std::numeric_limits<int>::max() ? static_cast<int>(count_) : 0;
    }

private:
    Unit *buffer_;
    std::int64_t capacity_;
    std::int64_t count_ = 0;
};

void Encode(char32_t character, Output<char16_t> &output) {
    if (character < firstBeyondUnit) {
        return output.Put(character);
    }
    output.Put(firstHighSurrogate + ((character - firstBeyondUnit) >> 10U));
    output.Put(firstLowSurrogate + ((character - firstBeyondUnit) & 0x3FFU));
}

void Encode(char32_t character, Output<char> &output) {
    if (character < 0x80) {
        return output.Put(character);
    }
    const unsigned trails = character < 0x800 ? 1 : character < firstBeyondUnit ? 2 : 3;
    constexpr char32_t marks[] = {0, 0xC0, 0xE0, 0xF0};
    output.Put(marks[trails] | (character >> (trails * trailBits)));
    for (unsigned left = trails; left-- > 0;) {
        output.Put(lowestTrail | ((character >> (left * trailBits)) & trailPayload));
    }
}

} // namespace

int MultiByteToWideChar([[maybe_unused]] UINT codePage, DWORD flags, const char *text, int textLength, LPWSTR buffer,
                        int bufferLength) {
    assert(codePage == CP_UTF8 && textLength >= 0);
    Output<char16_t> output(buffer, bufferLength);
    std::string_view rest(text, static_cast<std::size_t>(textLength));
    while (!rest.empty()) {
        const Piece piece = DecodeUtf8(rest);
        if (piece.malformed && flags == MB_ERR_INVALID_CHARS) {
            return 0;
        }
        Encode(piece.character, output);
        rest.remove_prefix(piece.length);
    }
    return output.Count();
}

int WideCharToMultiByte([[maybe_unused]] UINT codePage, [[maybe_unused]] DWORD flags, LPCWSTR text, int textLength,
                        char *buffer, int bufferLength, [[maybe_unused]] const char *defaultChar,
                        [[maybe_unused]] BOOL *usedDefaultChar) { // NOLINT(readability-non-const-parameter)
    assert(codePage == CP_UTF8 && flags == 0 && textLength >= 0 && !defaultChar && !usedDefaultChar);
    Output<char> output(buffer, bufferLength);
    std::u16string_view rest(text, static_cast<std::size_t>(textLength));
    while (!rest.empty()) {
        const Piece piece = DecodeUtf16(rest);
        Encode(piece.character, output);
        rest.remove_prefix(piece.length);
    }
    return output.Count();
}
