#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/UndoList.h"

namespace {
struct Log {
    std::vector<std::string> calls;
    int alive = 0;
};

class Command : public ulo::ICmdExecuted {
public:
    Command(Log& log, std::string name, unsigned size = 10)
        : log_(log), name_(std::move(name)), size_(size) {
        ++log_.alive;
    }
    ~Command() override { --log_.alive; }
    void Undo() override { log_.calls.push_back("undo " + name_); }
    void Redo() override { log_.calls.push_back("redo " + name_); }
    unsigned GetMemSize() override { return size_; }

private:
    Log& log_;
    std::string name_;
    unsigned size_;
};
}  // namespace

TEST(UndoList, UndoRedoInOrderAndOwnership) {
    Log log;
    {
        CUndoList list;
        list.Add(new Command(log, "a"));
        list.Add(new Command(log, "b"));
        EXPECT_TRUE(list.Undo());
        EXPECT_TRUE(list.Undo());
        EXPECT_FALSE(list.Undo());
        EXPECT_TRUE(list.Redo());
        EXPECT_EQ(log.calls, (std::vector<std::string>{"undo b", "undo a", "redo a"}));
        list.Add(new Command(log, "c"));  // drops the undone "b"
        EXPECT_EQ(log.alive, 2);
        EXPECT_FALSE(list.CanRedo());
        EXPECT_TRUE(list.Undo());
        EXPECT_EQ(log.calls.back(), "undo c");
        list.Add(nullptr);
        EXPECT_EQ(list.GetCount(), 2u);
    }
    EXPECT_EQ(log.alive, 0);
}

TEST(UndoList, MemoryLimitDropsTheOldestButKeepsTheNewest) {
    Log log;
    CUndoList list(25);
    list.Add(new Command(log, "a", 10));
    list.Add(new Command(log, "b", 10));
    list.Add(new Command(log, "c", 10));
    EXPECT_EQ(list.GetCount(), 2u);
    EXPECT_EQ(log.alive, 2);
    list.Add(new Command(log, "huge", 100));
    EXPECT_EQ(list.GetCount(), 1u);
    EXPECT_TRUE(list.Undo());
    EXPECT_EQ(log.calls.back(), "undo huge");
}
