#include "store/row_texts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(RowTextsTest, KeepsEveryTextInItsPlace) {
    const QString odd = u"a\0b\n"_s;
    RowTexts texts{u"1"_s, QString(), u"工资😀"_s};
    texts.AddNumber(-42).AddUtf8({"2016-09-03", " ", "08:15"}).Add(odd).Add(QString(5000, u'长'));
    const QStringList all{u"1"_s, QString(),           u"工资😀"_s, u"-42"_s, u"2016-09-03 08:15"_s,
                          odd,    QString(5000, u'长')};
    EXPECT_EQ(texts.All(), all);
    EXPECT_EQ(texts.Count(), 7);
    for (int i = 0; i < all.size(); ++i)
        EXPECT_EQ(texts.Text(i), all[i]) << i;
    EXPECT_TRUE(texts.Text(7).isNull());
    EXPECT_EQ(texts, RowTexts(all));
    EXPECT_NE(texts, RowTexts(all.mid(1)));
}

TEST(RowTextsTest, ATextMayBecomeLongerShorterOrNew) {
    RowTexts texts{u"一"_s, u"二"_s, u"三"_s};
    texts.Set(1, u"二十二");
    texts.Set(0, u"");
    EXPECT_EQ(texts.All(), (QStringList{{}, u"二十二"_s, u"三"_s}));
    texts.Set(4, u"five");
    EXPECT_EQ(texts.All(), (QStringList{{}, u"二十二"_s, u"三"_s, {}, u"five"_s}));
    RowTexts none;
    none.Set(0, u"x");
    EXPECT_EQ(none.All(), QStringList{u"x"_s});
}
