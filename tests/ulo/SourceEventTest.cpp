#include <gtest/gtest.h>

#include "ulo/SourceEvent.h"

namespace {
struct Counter : ulo::ISourceEventListener {
    int calls = 0;
    void OnSourceEvent(ulo::CSourceEvent&) override { ++calls; }
};
}  // namespace

TEST(SourceEvent, OneNotificationPerOutermostBracket) {
    ulo::CSourceEvent source;
    Counter listener;
    source.AddListener(&listener);
    {
        ulo::CSourceEventBracket outer(&source);
        source.Changed();
        {
            ulo::CSourceEventBracket inner(&source);
            source.Changed();
        }
        EXPECT_EQ(listener.calls, 0);
        source.Changed();
    }
    EXPECT_EQ(listener.calls, 1);
    source.Changed();  // outside a bracket: at once
    EXPECT_EQ(listener.calls, 2);
    {
        ulo::CSourceEventBracket quiet(&source);  // no change, no notification
    }
    EXPECT_EQ(listener.calls, 2);
    source.EndEvent();  // unbalanced: ignored
    EXPECT_EQ(source.GetDepth(), 0);
    source.RemoveListener(&listener);
    source.Changed();
    EXPECT_EQ(listener.calls, 2);
}

TEST(SourceEvent, BracketRestoresOnExceptions) {
    ulo::CSourceEvent source;
    Counter listener;
    source.AddListener(&listener);
    try {
        ulo::CSourceEventBracket b(&source);
        source.Changed();
        throw 1;
    } catch (int) {
    }
    EXPECT_EQ(source.GetDepth(), 0);
    EXPECT_EQ(listener.calls, 1);
}
