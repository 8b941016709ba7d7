#pragma once
// Calls the factory the way the host does, with a scripted user at the keys.
#include <gtest/gtest.h>

#include "automation/ScriptedUser.h"
#include "factory/IVELDDlgFactory.h"
#include "ulo/PalmDevice.h"

class FactoryTest : public ::testing::Test {
protected:
    void SetUp() override {
        factory = CreateFactory();
        ASSERT_NE(factory, nullptr);
        CPalmDevice::SetLayoutOverride(0);
    }
    void TearDown() override { CPalmDevice::SetLayoutOverride(-1); }

    /// Fails the test when a step did not run or something failed.
    static void ExpectFinished(const automation::ScriptedUser& user) {
        EXPECT_TRUE(user.Finished()) << user.Report().toStdString();
    }

    IVELDDlgFactory* factory = nullptr;
};
