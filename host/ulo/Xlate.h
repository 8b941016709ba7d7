#pragma once
// Translation hook and numbered-placeholder formatting of user-visible texts.
#include <functional>

#include "WString.h"

namespace ulo {

using Translator = std::function<WString(const WString&)>;

/// The text to show for @p source: the host's translator, or @p source itself.
WString Xlate(const WString& source);
/// Installs the host's translator (an empty function restores the identity).
void SetTranslator(Translator translator);

namespace detail {
/// Replaces "{1}".."{count}" in @p format by @p args[0..count-1]. A placeholder
/// whose number has no argument is left as it stands.
WString ulo_safefmt(const WString& format, unsigned count, const WString* args);
}  // namespace detail

/// Translates @p format, then fills its placeholders.
template <class... Args>
WString FormatMessage(const WString& format, const Args&... args) {
    const WString list[] = {WString(args)..., WString()};
    return detail::ulo_safefmt(Xlate(format), sizeof...(Args), list);
}

}  // namespace ulo
