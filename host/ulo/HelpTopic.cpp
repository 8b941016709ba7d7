#include "HelpTopic.h"

namespace ulo {

namespace {
struct State {
    WString topic;
    std::function<void(const WString&)> listener;
};
State& state() {
    static State s;
    return s;
}
}  // namespace

void SetHelpTopic(const WString& topic) {
    state().topic = topic;
    if (state().listener)
        state().listener(topic);
}

WString GetHelpTopic() {
    return state().topic;
}

void SetHelpTopicListener(std::function<void(const WString&)> listener) {
    state().listener = std::move(listener);
}

}  // namespace ulo
