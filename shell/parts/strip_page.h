#pragma once
// A page with a strip at its left. On a narrow page the strip shows its icons alone and opens over the page
// while the pointer or the keyboard is on it.

#include "shell/page.h"

class KestroScrollMenu;
class QVBoxLayout;

class StripPage : public Page {
 public:
    /// narrow: below this width, in pixels at full size, the strip shows its icons alone.
    explicit StripPage(QWidget* parent, int narrow = 760);

 protected:
    /// The room beside the strip, within the page's margins.
    QVBoxLayout* Room() const { return room_; }
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

    KestroScrollMenu* KestroScrollMenu1;

 private:
    void OpenStrip(bool open);
    void PlaceStrip();

    QVBoxLayout* room_;
    int narrow_;
    bool open_ = false;  ///< over the page
};
