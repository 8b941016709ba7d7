#pragma once
// Sets the density multiplier of base pixel sizes for the life of the object,
// then restores what the environment held.
#include <QByteArray>
#include <QtGlobal>

namespace veldtest {

class ScopedMultiplier {
public:
    explicit ScopedMultiplier(int m) : saved_(qgetenv("VELD_RES_MULTIPLIER")) {
        qputenv("VELD_RES_MULTIPLIER", QByteArray::number(m));
    }
    ~ScopedMultiplier() {
        if (saved_.isNull())
            qunsetenv("VELD_RES_MULTIPLIER");
        else
            qputenv("VELD_RES_MULTIPLIER", saved_);
    }
    ScopedMultiplier(const ScopedMultiplier&) = delete;
    ScopedMultiplier& operator=(const ScopedMultiplier&) = delete;

private:
    QByteArray saved_;
};

}  // namespace veldtest
