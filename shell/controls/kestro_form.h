#pragma once
// KestroForm: the main window's frame, with the ink band that carries logo, tabs and small buttons.

#include "shell/controls/window_frame.h"

#include <QWidget>

#include <functional>
#include <memory>

class KestroHeader;

class KestroForm : public QWidget {
 public:
    explicit KestroForm(QWidget* parent = nullptr);
    ~KestroForm() override;

    /// The program's name and its version; also the window's title.
    void SetCaption(const QString& name, const QString& version);
    /// Tabs in order; the first one is index 0. The caption may hold blanks.
    void AddTab(const QString& caption);
    /// Marks a tab. Does not call onTab.
    void SelectTab(int index);
    /// A disabled tab stands in its place and takes neither click nor focus.
    void SetTabEnabled(int index, bool enabled);
    int SelectedTab() const;
    int TabCount() const;
    /// Height of the band in pixels.
    static int HeaderHeight();
    /// Number on the logo; 0 or less hides it.
    void SetBadge(int number);
    void SetBookLabel(const QString& text);
    /// The pressed one of the three display modes: 0 detail at the right, 1 below, 2 list alone.
    void SetDisplayMode(int mode);
    int DisplayMode() const;
    /// "logo", "label", "web", "calculator" or "menu", to pop something up beside it; null for other names.
    QWidget* HeaderWidget(const QString& name) const;
    /// The room for the pages: everything between the band and the footer bar.
    QWidget* Body() const { return body_; }
    /// Takes over bar and keeps it at the bottom in its fixed height (30).
    void SetFooter(QWidget* bar);
    /// Sizes of the window without its shadow.
    void SetSmallest(QSize size) { frame_->SetSmallest(size); }
    void SetNamedSize(QSize size) { frame_->SetNamedSize(size); }
    /// Moves the window; the place is remembered for its later growth.
    void SetPlace(QPoint place) { frame_->SetPlace(place); }
    QSize NamedSize() const { return frame_->Named().size(); }

    std::function<void(int)> onTab;
    std::function<void(int)> onDisplayMode;
    std::function<void(const QString&)> onHeaderButton;  ///< "web", "calculator" or "menu"
    std::function<void()> onBookLabel;
    std::function<void()> onLogo;
    std::function<void()> onClose;  ///< the window stays open; its owner decides and
                                    ///< ends the program by QCoreApplication::exit

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

 private:
    void Connect();
    void Arrange();

    std::unique_ptr<WindowFrame> frame_;
    KestroHeader* header_;
    QWidget* body_;
    QWidget* footer_ = nullptr;
};
