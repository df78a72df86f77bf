#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <utility>

#include "system/PropertyBag.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

const ButtonPicture kBitmap = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
const ButtonPicture kIcon = ButtonPicture::icon(plainImage({8, 8}, Qt::red));
constexpr ColorValue kRed(0x0000FF);
constexpr ColorValue kBlue(0xFF0000);

/// A desktop that notes the first two words of each box.
struct NotingDesktop : FakeDesktop {
    QString said;
    std::function<void()> meanwhile;
    BoxAnswer showBox(QWidget*, const MessageBox& box) override {
        said = box.text.section(' ', 0, 1);
        if (meanwhile) meanwhile();
        return BoxAnswer::Ok;
    }
};

class XPButtonModelTest : public testing::Test {
  protected:
    NotingDesktop desktop;
    TestHost host;
    XPButton button{desktop, nullptr, &host};
};

TEST(AdjustColor, EndsWhereNoTurnHelps) {
    EXPECT_EQ(AdjustColor(0x808080, 300, true, true), kWhite);
}

/// Steps in the life of a button, and the advice that they give the designer.
const struct Step {
    std::function<void(XPButton&)> set;
    const char* advice;
} kSteps[] = {
    {[](auto& one) { one.SetButtonShape(kCustomShape); }, "The Picture"},
    {[](auto& one) { one.SetPicture(kBitmap), one.SetCaptionAlign(0); }, ""},
    {[](auto& one) { one.SetPictureAlign(5), one.SetCaptionAlign(1); }, "When button"},
    {[](auto& one) { one.SetButtonShape(kCustomShape); }, ""},
    {[](auto& one) { one.SetPictureSize(0); }, "The picture"},
    {[](auto& one) { one.SetPicture(kIcon); }, "Icons cannot"},
    {[](auto& one) { one.UserControl_AmbientChanged("displayasdefault"); }, ""},
    {[](auto& one) { one.SetShowFocusRect(false); }, "The focus"},
    {[](auto& one) { one.SetMouseIcon(kBitmap); }, "Select .ico"},
};

TEST_F(XPButtonModelTest, MayBeDeletedWhileABoxAdvises) {
    host.userMode = false;
    host.displayAsDefault = true;
    for (const Step& last : kSteps) {
        auto* one = new XPButton(desktop, nullptr, &host);
        desktop.meanwhile = {};
        for (const Step* step = kSteps; step != &last; ++step) step->set(*one);
        desktop.said.clear();
        desktop.meanwhile = [&one] { delete std::exchange(one, nullptr); };
        last.set(*one);
        EXPECT_EQ(desktop.said, last.advice);
        delete one;
    }
}

TEST_F(XPButtonModelTest, HoverColoursFollowUntilLocked) {
    const struct {
        std::function<void()> set;
        ColorValue hoverBack, hoverFore;
        int locks;
    } rows[] = {
        {[&] { button.SetBackColor(kRed), button.SetForeColor(kBlue); }, kRed, kBlue, 0},
        {[&] { button.SetGradientColor(kBlue); }, kRed, kBlue, 0},
        {[&] { button.SetGradientMode(3); }, kBlue, kBlue, 0},
        {[&] { button.SetGradientColor(kButtonFace); }, kButtonFace, kBlue, 0},
        {[&] { button.SetGradientMode(0); }, kRed, kBlue, 0},
        {[&] { button.SetHoverBackColor(kBlue); }, kBlue, kBlue, 1},
        {[&] { button.SetBackColor(kButtonFace), button.SetForeColor(kRed); }, kBlue, kRed, 1},
        {[&] { button.SetHoverColorLocks(0); }, kButtonFace, kRed, 0},
    };
    for (const auto& row : rows) {
        row.set();
        EXPECT_EQ(button.HoverBackColor(), row.hoverBack) << &row - rows;
        EXPECT_EQ(button.HoverForeColor(), row.hoverFore) << &row - rows;
        EXPECT_EQ(button.HoverColorLocks(), row.locks) << &row - rows;
    }
}

TEST_F(XPButtonModelTest, FindsTheAccessKeyBehindTheLastMark) {
    const std::tuple<const char*, QString, QString> rows[] = {
        {"Save && &Close", "Alt+C", "Save & Close"}, {"None", "Alt+C", "None"},  // as it was
        {"Save && close", "", "Save & close"},                                   // a blank is none
        {"&One||&two", "Alt+T", "One two"},          {"End&", "", "End"},
    };
    for (const auto& [caption, key, spoken] : rows) {
        button.SetCaption(caption);
        EXPECT_EQ(button.accessKeySequence().toString(), key) << caption;
        EXPECT_EQ(spokenCaption(caption), spoken);
    }
}

/// What a button stores, as "key=value;" in the order of writing. A picture has no value here.
QString stored(const XPButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    QString text;
    for (const QString& key : bag.keys())
        text += key + '=' + bag.readProperty(key, QVariant()).toString() + ';';
    return text;
}

TEST_F(XPButtonModelTest, IsMadeAndReadWithTheDefaultsOfItsContainer) {
    host.backColor = kBlue;
    button.InitProperties();
    EXPECT_EQ(button.Caption(), "btnOne");
    EXPECT_EQ(button.Font().pointSize(), 11);
    button.ReadProperties(PropertyBag());
    EXPECT_EQ(stored(button), "");
    EXPECT_EQ(button.HoverBackColor(), kBlue);
}

TEST_F(XPButtonModelTest, ComesBackFromTheStoreAsItWasAndReadsNonsenseAsNothing) {
    const QString store =
        "Caption=a&b||c;CapAlign=1;Shape=3;Font=" + QFont("Courier New", 8).toString() +
        ";cFore=2147483653;cFHover=4;cBhover=5;Focus=false;LockHover=3;cGradient=1;Gradient=4;"
        "CapStyle=2;ImgAlign=3;Image=;ImgSize=32;Enabled=false;cBack=7;mPointer=3;mIcon=;"
        "GotFocusBorderColor=2;HoverBorderColor=6;";
    PropertyBag bag;
    for (const QString& member : store.split(';', Qt::SkipEmptyParts))
        bag.writeProperty(member.section('=', 0, 0), member.section('=', 1), {});
    bag.writeProperty("Image", kBitmap.toVariant(), {});
    bag.writeProperty("mIcon", kIcon.toVariant(), {});
    button.ReadProperties(bag);
    EXPECT_EQ(stored(button), store);
    EXPECT_EQ(button.Picture().image(), kBitmap.image());
    EXPECT_TRUE(button.MouseIcon().isIcon());
    for (const QVariant& nonsense : {QVariant(qlonglong{1} << 40), QVariant(QVariantList{1, 2})}) {
        for (const QString& key : bag.keys())
            if (key != "Caption") bag.writeProperty(key, nonsense, {});
        button.ReadProperties(bag);
        EXPECT_EQ(stored(button), "Caption=a&b||c;");
    }
}

}  // namespace
}  // namespace brindlex
