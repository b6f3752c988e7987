#include "shell/page.h"

#include <array>

namespace {
std::array<PageFactory, kTabs>& Factories() {
    static std::array<PageFactory, kTabs> factories;
    return factories;
}
}  // namespace

int CodeOfTab(int tab) {
    constexpr std::array<int, kTabs> codes{kPageAccount, kPageSubAcc, kPageWeb,
                                           kPageStats,   kPageNote,   kPageSetting};
    return codes.at(static_cast<size_t>(tab));
}

void RegisterPage(int tab, PageFactory factory) {
    Factories().at(static_cast<size_t>(tab)) = std::move(factory);
}

bool HasPageFactory(int tab) {
    return static_cast<bool>(Factories().at(static_cast<size_t>(tab)));
}

Page* MakePage(int tab, QWidget* parent) {
    return HasPageFactory(tab) ? Factories().at(static_cast<size_t>(tab))(parent) : nullptr;
}

void ClearPageFactories() {
    Factories().fill({});
}

PageHost& Host() {
    static PageHost host;
    return host;
}

Page* PageOfCode(int code) {
    if (!Host().page) return nullptr;
    for (int tab = 0; tab < kTabs; ++tab)
        if (CodeOfTab(tab) == code) return Host().page(tab);
    return nullptr;
}
