#include "books/general_settings.h"

#include "store/book_box.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/paths.h"
#include "store/settings_file.h"
#include "store/state.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class RestoresSettings {
 public:
    RestoresSettings() = default;
    ~RestoresSettings() {
        if (!kept_) State().settings = before_;
    }
    RestoresSettings(const RestoresSettings&) = delete;
    RestoresSettings& operator=(const RestoresSettings&) = delete;
    void Keep() { kept_ = true; }
    const Settings& Before() const { return before_; }

 private:
    const Settings before_ = State().settings;
    bool kept_ = false;
};

struct BoxChange {
    QString message;
    int icon = kMsgWarn;
    QString box;  ///< the other book box, empty when it stays
};

bool IsSameBox(const QString& path, const QString& current) {
    return path == current || IsSameFile(RealPath(path).path, RealPath(current).path);
}

// typed: the path as it is spelled, which lower case may lead elsewhere.
BoxChange ChangeOfBox(const QString& path, const QString& typed) {
    if (path.isEmpty()) {
        const QString usual = State().gDefaultBox;
        return {u"设置保存成功!\r\n由于账本盒【存储路径】为【空】, 将使用【默认路径】：\r\n"_s + usual,
                kMsgWarn, usual};
    }
    if (IsSameBox(path, State().settings.sDBPath)) return {u"保存成功！"_s, kMsgInfo, {}};
    if (const auto rivals = SpelledPath(typed).rivals; !rivals.isEmpty())
        return {RivalBoxText(rivals) + u"\n其它设置保存成功!"_s, kMsgWarn, {}};
    if (QDir::isAbsolutePath(path) && FolderExists(path)) return {{}, kMsgInfo, path};
    return {u"指定的账本盒【存储路径】不存在!\r\n其它设置保存成功!"_s, kMsgWarn, {}};
}

QString RestartText(const QString& before, const QString& now) {
    return u"账本盒存储位置有改变, 因此需要【关闭、重启】程序!\n"
           u"建议把【原路径】下的账本盒中的账本『移动』到【新路径】下!\n原路径\n"_s +
           before + u"\n新路径\n"_s + now;
}

QString AsStored(const QString& typed) {
    QString path = typed.trimmed().toLower();
    if (NativeStyle() == PathStyle::windows) path.replace(u'/', u'\\');
    return path;
}

}  // namespace

int GroupOfOption(int option) {
    return option == 0 ? 3 : option == 1 ? 4 : 0;
}

GeneralSaved SaveGeneralSettings(const GeneralForm& form) {
    RestoresSettings restore;
    const auto& before = restore.Before();
    auto& settings = State().settings;
    const QString path = AsStored(form.path);
    const auto change = ChangeOfBox(path, form.path.trimmed());
    settings.nGroup = form.nGroup;
    settings.sWebName = form.webName;
    settings.sWebPass = form.webPass;
    if (!change.box.isEmpty()) settings.sDBPath = change.box;
    SaveSetting({}, kSaveAll);
    restore.Keep();
    if (settings.nGroup != before.nGroup) Notices().groupingChanged.Emit();
    GeneralSaved saved{change.message, change.icon, path.isEmpty() ? change.box : path, {}};
    if (!change.box.isEmpty()) saved.restart = RestartText(before.sDBPath, change.box);
    return saved;
}
