#include "support/PlainSigns.h"

#include <algorithm>
#include <array>

namespace kxVsGrid::support {
namespace {

/// The full stop and the long-vowel mark are what the keys for a point and a minus type in Chinese and Japanese.
constexpr std::array Signs{
    PlainSign{"０", '0'}, PlainSign{"１", '1'}, PlainSign{"２", '2'}, PlainSign{"３", '3'},
    PlainSign{"４", '4'}, PlainSign{"５", '5'}, PlainSign{"６", '6'}, PlainSign{"７", '7'},
    PlainSign{"８", '8'}, PlainSign{"９", '9'}, PlainSign{"．", '.'}, PlainSign{"。", '.'},
    PlainSign{"，", ','}, PlainSign{"－", '-'}, PlainSign{"ー", '-'}, PlainSign{"＋", '+'},
    PlainSign{"×", '*'},  PlainSign{"÷", '/'},  PlainSign{"（", '('}, PlainSign{"）", ')'},
    PlainSign{"％", '%'}, PlainSign{"：", ':'}, PlainSign{"／", '/'},
};

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// The sign that the text begins with.
const PlainSign* signAtStart(std::string_view text) {
    const auto* const found = std::find_if(Signs.begin(), Signs.end(), [text](const PlainSign& sign) {
        return text.starts_with(sign.fullWidth);
    });
    return found == Signs.end() ? nullptr : found;
}
}  // namespace

std::span<const PlainSign> plainSigns() {
    return Signs;
}

std::string inPlainSigns(std::string_view text) {
    if (isAscii(text)) return std::string(text);
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const PlainSign* const sign = signAtStart(text);
        plain += sign ? sign->plain : text.front();
        text.remove_prefix(sign ? sign->fullWidth.size() : 1);
    }
    return plain;
}
}  // namespace kxVsGrid::support
