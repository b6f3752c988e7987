#include "store/state.h"

#include <algorithm>

ProgramState& State() {
    static ProgramState state;
    return state;
}

const BookRecord& CurrentBook() {
    static const BookRecord none;
    const auto& state = State();
    const auto index = static_cast<size_t>(state.gCurBook);
    return state.gCurBook >= 0 && index < state.gBooks.size() ? state.gBooks[index] : none;
}

void ResetDlg(int code) {
    State().gDlg.at(static_cast<size_t>(code)) = DialogRecord{};
}

void AddPopup(int delta) {
    State().gPopups = std::max(0, State().gPopups + delta);
}
