#pragma once
// Help topics: a dialog announces the help page of what is in front with
// SetHelpTopic; the host installs a listener to learn it.
#include <functional>

#include "WString.h"

namespace ulo {

void SetHelpTopic(const WString& topic);
/// The topic announced last (empty before any).
WString GetHelpTopic();
void SetHelpTopicListener(std::function<void(const WString&)> listener);

}  // namespace ulo

using ulo::SetHelpTopic;
