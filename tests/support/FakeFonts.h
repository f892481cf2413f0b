#pragma once

#include "Foundation/Seam.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"

/// A machine on which every font is installed, or none.
struct FakeFonts final : FontRegistry {
    bool installed = true;

    void add(const QStringList &) override {}
    void finish() override {}
    bool has(const QString &) override { return installed; }

private:
    Seam<FontRegistry>::Replacement m_seam{*this};
};
