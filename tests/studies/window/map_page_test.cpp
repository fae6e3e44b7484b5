// SPDX-License-Identifier: GPL-3.0-or-later
// The page of the map: it follows the project, is read off by pointer and keys, and gives places to the project.
#include <QAccessible>
#include <QClipboard>
#include <QPushButton>

#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class MapPageTest : public StudiesWindowTest {
  protected:
    MapPageTest() { WaitForMap(); }

    const MapPicture& Picture() { return std::get<MapPicture>(View().Shown()); }
    QPoint PixelAt(double x, double y) { return View().PixelOf({x, y})->toPoint(); }

    // Through the window, since the offscreen screen loses the pointer of a widget where its scale is not one.
    void PointAt(double x, double y) {
        QTest::mouseMove(window->windowHandle(), View().mapTo(window.get(), PixelAt(x, y)));
    }
};

TEST_F(MapPageTest, ShowsTheWebsOverTheirThicknessAndTheDepth) {
    EXPECT_EQ(Picture().title, "Worked panel");
    EXPECT_EQ(Picture().x.title, "Web thickness (ft)");
    EXPECT_EQ(Picture().y.title, "Depth of cover (ft)");
    EXPECT_EQ(Picture().project->text, "4.71999");
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("The project: "));
}

TEST_F(MapPageTest, FollowsTheSlider) {
    QSlider& slider = Find<QSlider>("CoalStrength_Slider");
    slider.setValue(slider.maximum());  // 1350 psi: half as much again
    EXPECT_TRUE(WaitUntil([this] { return Picture().project->text == "7.07999"; }));
}

TEST_F(MapPageTest, ThePointerReadsOutAllFigures) {
    PointAt(11, 90);
    PointAt(10, 118);
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("Web thickness "));
    EXPECT_THAT(TextOf("Map_Reading"), HasSubstr("Suggested barrier "));
    EXPECT_TRUE(Find<QPushButton>("Map_Take").isEnabled());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&View(), &leave);
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("The project: "));
    EXPECT_FALSE(Find<QPushButton>("Map_Take").isEnabled());
}

TEST_F(MapPageTest, KeysReadAndTakeAPlace) {
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_Right);
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("Web thickness 10.02 ft, Depth of cover 100 ft: Overall "));
    QTest::keyClick(&View(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("Web thickness 10.02 ft, Depth of cover 102 ft: Overall "));
    EXPECT_EQ(View().accessibleDescription(), Find<QLabel>("Map_Reading").text());
    QTest::keyClick(&View(), Qt::Key_Return);
    EXPECT_EQ(TextOf("WebThickness_Box"), "10.02");
    EXPECT_EQ(TextOf("DepthCover_Box"), "102");
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("WebThickness_Box"), "10");
    EXPECT_EQ(TextOf("DepthCover_Box"), "100");
    QTest::keyClick(&View(), Qt::Key_Escape);
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("The project: "));
}

TEST_F(MapPageTest, AScreenReaderIsToldTheFigureAtTheMark) {
    QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&View());
    EXPECT_EQ(told.role(), QAccessible::Chart);
    EXPECT_EQ(told.text(QAccessible::Name), "Map");
    ASSERT_NE(told.valueInterface(), nullptr);
    EXPECT_NEAR(told.valueInterface()->currentValue().toDouble(), 4.71999, 5e-6);
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_Right);
    EXPECT_THAT(FromQt(told.text(QAccessible::Value)),
                StartsWith("Web thickness 10.02 ft, Depth of cover 100 ft: Overall "));
    EXPECT_NEAR(told.valueInterface()->currentValue().toDouble(), 4.72903, 1e-5);
    QTest::keyClick(&View(), Qt::Key_Escape);
    EXPECT_NEAR(told.valueInterface()->currentValue().toDouble(), 4.71999, 5e-6);
}

TEST_F(MapPageTest, ADoubleClickTakesThePlace) {
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, PixelAt(12, 80));
    EXPECT_NEAR(window->Model().Document().inputs.WebThickness, 12, 0.05);
    EXPECT_NEAR(window->Model().Document().inputs.DepthCover, 80, 0.5);
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Place on the map");
}

TEST_F(MapPageTest, OneFieldAloneGivesCurves) {
    QComboBox& y = Find<QComboBox>("Map_Y");
    y.setCurrentIndex(0);
    EXPECT_EQ(FromQt(y.currentText()), "None (curves)");
    WaitForMap();
    ASSERT_TRUE(std::holds_alternative<CurvesPicture>(View().Shown()));
    EXPECT_EQ(std::get<CurvesPicture>(View().Shown()).curves.size(), 3U);
    EXPECT_FALSE(Find<QPushButton>("Map_Swap").isEnabled());
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_Left);
    EXPECT_THAT(TextOf("Map_Reading"), StartsWith("Web thickness 9.98 ft: Overall "));
    y.setCurrentIndex(y.findText("Depth of cover"));
    WaitForMap();
}

TEST_F(MapPageTest, FieldsAreExchanged) {
    QTest::mouseClick(&Find("Map_Swap"), Qt::LeftButton);
    WaitForMap();
    EXPECT_EQ(Picture().x.title, "Depth of cover (ft)");
    EXPECT_EQ(Picture().y.title, "Web thickness (ft)");
}

TEST_F(MapPageTest, AFigureThatIsChosenIsUndoneAndDoneAgainOnItsPage) {
    QComboBox& figure = Find<QComboBox>("Map_Figure");
    figure.setFocus();
    QTest::keyClick(&figure, Qt::Key_Down);
    EXPECT_EQ(FromQt(figure.currentText()), "Barrier Pillar");
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Figure of the map");
    EXPECT_FALSE(window->isWindowModified());
    Find<QTabWidget>("Pages").setCurrentIndex(3);
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(Find<QTabWidget>("Pages").currentIndex(), 0);
    EXPECT_EQ(FromQt(figure.currentText()), "Webs ONLY");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());
    WaitForMap();
    EXPECT_EQ(Picture().project->text, "4.71999");
    Find<QTabWidget>("Pages").setCurrentIndex(2);
    EXPECT_TRUE(Choose("actRedo"));
    EXPECT_EQ(Find<QTabWidget>("Pages").currentIndex(), 0);
    WaitForMap();
    EXPECT_EQ(FromQt(figure.currentText()), "Barrier Pillar");
    EXPECT_NE(Picture().project->text, "4.71999");
}

TEST_F(MapPageTest, AnExchangeOfFieldsIsUndoneAtOnce) {
    QTest::mouseClick(&Find("Map_Swap"), Qt::LeftButton);
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Fields of the map");
    EXPECT_TRUE(Choose("actUndo"));
    WaitForMap();
    EXPECT_EQ(Picture().x.title, "Web thickness (ft)");
    EXPECT_EQ(FromQt(Find<QComboBox>("Map_X").currentText()), "Web thickness");
    EXPECT_EQ(FromQt(Find<QComboBox>("Map_Y").currentText()), "Depth of cover");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());
}

TEST_F(MapPageTest, ARangeIsUndoneWithItsPicture) {
    Type("WebThickness_High", "12");
    EXPECT_FALSE(Find<QAction>("actUndo").isEnabled());  // it is not finished
    QTest::keyClick(&Find("WebThickness_High"), Qt::Key_Return);
    EXPECT_EQ(FromQt(Find<QAction>("actUndo").text()), "&Undo: Web thickness, range");
    WaitForMap();
    EXPECT_EQ(Picture().x.high, 12);
    EXPECT_TRUE(Choose("actUndo"));
    EXPECT_EQ(TextOf("WebThickness_High"), "15");
    WaitForMap();
    EXPECT_EQ(Picture().x.high, 15);
}

TEST_F(MapPageTest, WhereNothingCanBeDrawnItSaysWhy) {
    Type("Height_Box", "-1");
    ASSERT_TRUE(WaitUntil([this] { return !View().Words().isEmpty(); }));
    EXPECT_EQ(FromQt(View().Words()), "nothing to draw: no panel has a value (Invalid entry height)");
    EXPECT_TRUE(Choose("actCopyPicture"));
    EXPECT_EQ(Notice(), "there is no picture to copy");
}

TEST_F(MapPageTest, PictureAndFiguresAreTakenAlong) {
    Host.Dialogs.FileAnswers = {PathTo("map.svg"), PathTo("map.csv")};
    EXPECT_TRUE(Choose("actSavePicture"));
    EXPECT_THAT(ReadBytes(PathTo("map.svg")), HasSubstr("Worked panel"));
    EXPECT_TRUE(Choose("actSaveFigures"));
    EXPECT_THAT(ReadBytes(PathTo("map.csv")),
                StartsWith("WebThickness (ft),DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio "
                           "(percent),Message\n5,50,"));
    EXPECT_TRUE(Choose("actCopyPicture"));
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(1800, 1260));
}

TEST_F(MapPageTest, ChoicesAreRemembered) {
    Map().Choose(PanelField::Height, PanelField::HoleWidth, *FigureNamed("Overall"));
    window->close();
    window = std::make_unique<StudiesWindow>();
    EXPECT_EQ(Map().Request().x.field, PanelField::Height);
    EXPECT_EQ(Map().Request().y->field, PanelField::HoleWidth);
    Map().Choose(PanelField::WebThickness, PanelField::DepthCover, *FigureNamed("WebsOnly"));
    window->close();
}

}  // namespace
}  // namespace tarvokol
