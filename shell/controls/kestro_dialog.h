#pragma once
// KestroDialog: the frame of every modal window.

#include "shell/controls/window_frame.h"

#include <QDialog>

#include <functional>
#include <memory>

class PngButton;
class QAbstractButton;
class QScrollArea;

enum class DialogKind {
    common,  ///< title 40, footer 56
    small    ///< title 32, footer 48: message box and input box
};

/// Frameless, movable by its title, on the ground of `surface`. Enter presses the default button, Escape runs
/// onEscape, the close box onClose.
class KestroDialog : public QDialog {
 public:
    explicit KestroDialog(DialogKind kind, const QString& caption = {}, QWidget* parent = nullptr);
    ~KestroDialog() override;

    void SetCaption(const QString& caption);
    /// The room between title and footer. Give it a layout: what does not fit on the screen then scrolls.
    QWidget* Body() const { return body_; }
    /// Where the body shows, in the window.
    QRect BodyRect() const;
    /// The bar at the bottom with its dividing line; made at the first call.
    QWidget* Footer();
    /// A line between title and body, for forms of more than three rows.
    void SetTitleLine(bool shown);
    /// Ends the line above the footer short of the right edge.
    void SetFooterLine(int shorter);
    /// The button that Enter presses, unless a focused button or a box takes it.
    void SetDefaultButton(QAbstractButton* button) { default_ = button; }
    int TitleHeight() const;
    int FooterHeight() const;
    /// Size of the window without its shadow: this one, larger where the layouts of body and footer need
    /// more, but never larger than the work area.
    void SetNamedSize(QSize least);
    /// Lets the user resize the window; its controls then stand in a layout.
    void SetResizable(bool on) { frame_->SetResizable(on); }
    void SetSmallest(QSize size);
    QSize NamedSize() const { return frame_->Named().size(); }
    void SetOpacity(double opacity) { frame_->SetOpacity(opacity); }

    std::function<void()> onEscape;  ///< default: reject
    std::function<void()> onClose;   ///< default: reject

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void Leave(const std::function<void()>& road);
    void Arrange();
    QSize NeededSize(QSize least) const;
    QSize WorkArea() const;

    std::unique_ptr<WindowFrame> frame_;
    DialogKind kind_;
    PngButton* close_;
    QScrollArea* scroll_;
    QWidget* body_;
    QWidget* footer_ = nullptr;
    QAbstractButton* default_ = nullptr;
    const bool duringJob_;  ///< it came up while one ran
    bool titleLine_ = false;
    int footerLineShorter_ = 0;
};
