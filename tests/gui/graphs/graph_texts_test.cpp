// SPDX-License-Identifier: GPL-3.0-or-later
// All that the graph windows and their options show, read out and tell, and where the tab key leads.
#include <QGridLayout>

#include "tests/support/form_facts.h"
#include "tests/support/graph_fixture.h"
#include "tests/support/window_menus.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAreArray;

class GraphTexts : public GraphTest {
  protected:
    template <typename Form>
    static Form& Open() {
        ShowAndActivate(Form::Instance());
        return Form::Instance();
    }

    template <typename Form>
    static void ExpectWindow(const std::string& name) {
        Form& form = Open<Form>();
        EXPECT_EQ(form.size(), QSize(477, 416));
        // Where the read-out stands in one row in any font.
        form.resize(600, 416);
        RunEvents();
        EXPECT_THAT(FactsOf(form),
                    UnorderedElementsAreArray(std::vector<std::string>{
                        name + " 'Graph'", "Frame1 'Point ID'", "Label1 'X-coord:'", "lblX told 'X-coord'",
                        "Label3 'Stability fact:'", "lblSF told 'Stability fact'", "Label5 'Curve:'",
                        "lblCurve told 'Curve'", "Graph1 read 'Graph'"}));
        EXPECT_THAT(MenusOf(form), ElementsAre("&File: '&Print' - 'Export' - 'E&xit'", "&Edit: 'Copy '",
                                               "&Options: 'Point ID' 'Basic &options'"));
        EXPECT_THAT(TabOrderOf(form), ElementsAre("Graph1"));
        EXPECT_EQ(form.minimumSize(), QSize(267, 267));
        EXPECT_TRUE(Find<QAction>(form, "GraphOptionsItem_0").isCheckable());
        EXPECT_TRUE(Find<QAction>(form, "GraphOptionsItem_0").isChecked());
        EXPECT_EQ(Find<QGroupBox>(form, "Frame1").geometry().topLeft(), QPoint(8, 2));
    }

    // Defaults are set: everything but the titles of the graph on show is off.
    template <typename Form>
    static void ExpectOptions(const std::string& name) {
        GraphSetParams = 0;
        Form& form = Open<Form>();
        EXPECT_THAT(FactsOf(form), UnorderedElementsAreArray(std::vector<std::string>{
                                       name + " 'Graph Parameters and Options'",
                                       "Frame1 'Options'",
                                       "Option1_1 'Set format parameters to last used'",
                                       "Option1_0 'Set default format parameters' on",
                                       "Command3 'Help'",
                                       "Frame2 'Basic formatting parameters'",
                                       "label_Text1 'Graph title' for Text1",
                                       "Text1 read 'Graph title' off grey",
                                       "label_Text2_0 'X-axis title' for Text2_0",
                                       "Text2_0 read 'X-axis title of graph 1'",
                                       "Text2_1 read 'X-axis title of graph 2' off grey",
                                       "Text2_2 read 'X-axis title of graph 3' off grey",
                                       "label_Text3_0 'Y-axis title' for Text3_0",
                                       "Text3_0 read 'Y-axis title of graph 1'",
                                       "Text3_1 read 'Y-axis title of graph 2' off grey",
                                       "Text3_2 read 'Y-axis title of graph 3' off grey",
                                       "label_Combo1 'Grid style' for Combo1",
                                       "Combo1 read 'Grid style' off",
                                       "label_Combo2 'Graph Style' for Combo2",
                                       "Combo2 read 'Graph Style' off",
                                       "Check1 'Curve legend' on off",
                                       "Label1 'Symbol size' for HScroll1 off",
                                       "HScroll1 read 'Symbol size' off",
                                       "txtSS read 'Symbol size' off locked grey",
                                       "Command2 'OK' default",
                                       "Command1 'Cancel' cancel"}));
        EXPECT_THAT(TabOrderOf(form),
                    ElementsAre("Option1_0", "Command3", "Text2_0", "Text3_0", "Command2", "Command1"));
        form.Unload();
        RunEvents();
        GraphSetParams = 1;
        EXPECT_THAT(TabOrderOf(Open<Form>()),
                    ElementsAre("Option1_1", "Command3", "Text1", "Text2_0", "Text3_0", "Combo1", "Combo2",
                                "Check1", "HScroll1", "txtSS", "Command2", "Command1"));
        const auto& bar = Find<QScrollBar>(Form::Instance(), "HScroll1");
        EXPECT_EQ(bar.minimum(), 3);
        EXPECT_EQ(bar.maximum(), 20);
        EXPECT_EQ(bar.singleStep(), 1);
        EXPECT_EQ(bar.pageStep(), 3);
        for (const char* name_of_box : {"Combo1", "Combo2"}) {
            const auto& box = Find<QComboBox>(Form::Instance(), name_of_box);
            EXPECT_EQ(box.completer(), nullptr);
            EXPECT_EQ(box.lineEdit()->accessibleName(), box.accessibleName());
            EXPECT_EQ(box.insertPolicy(), QComboBox::NoInsert);
        }
        Form::Instance().Unload();
        RunEvents();
    }
};

TEST_F(GraphTexts, OfTheStabilityGraph) {
    ExpectWindow<frmGraph>("frmGraph");
}

TEST_F(GraphTexts, OfTheSizingGraph) {
    ExpectWindow<frmGraphS>("frmGraphS");
}

TEST_F(GraphTexts, OfTheOptionsOfTheStabilityGraph) {
    ExpectOptions<frmGraphOpt>("frmGraphOpt");
}

TEST_F(GraphTexts, OfTheOptionsOfTheSizingGraph) {
    ExpectOptions<frmGraphOptS>("frmGraphOptS");
}

// Row and column of the read-out's labels, captions and values in turn.
std::vector<std::pair<int, int>> PlacesOf(const QGridLayout& grid, QWidget& form) {
    std::vector<std::pair<int, int>> places;
    for (const char* name : {"Label1", "lblX", "Label3", "lblSF", "Label5", "lblCurve"}) {
        int row = -1, column = -1, rows = 0, columns = 0;
        grid.getItemPosition(grid.indexOf(form.findChild<QLabel*>(name)), &row, &column, &rows, &columns);
        places.emplace_back(row, column);
    }
    return places;
}

std::vector<int> StretchesOf(const QGridLayout& grid) {
    std::vector<int> stretches;
    for (int column = 0; column < 6; ++column) stretches.push_back(grid.columnStretch(column));
    return stretches;
}

TEST_F(GraphTexts, TheReadOutStandsInOneRowOrInTwo) {
    frmGraph& form = ShowStability(0);
    auto& frame = Find<QGroupBox>(form, "Frame1");
    const auto& grid = *qobject_cast<QGridLayout*>(frame.layout());
    const auto size = [&](int width) {
        form.resize(width, 400);
        RunEvents();
    };
    size(600);
    using Place = std::pair<int, int>;
    EXPECT_THAT(PlacesOf(grid, form),
                ElementsAre(Place(0, 0), Place(0, 1), Place(0, 2), Place(0, 3), Place(0, 4), Place(0, 5)));
    EXPECT_THAT(StretchesOf(grid), ElementsAre(0, 1, 0, 1, 0, 2));
    EXPECT_EQ(frame.width(), std::max(449, frame.sizeHint().width()));
    EXPECT_EQ(frame.title(), "Point ID");
    size(267);
    EXPECT_THAT(PlacesOf(grid, form),
                ElementsAre(Place(0, 0), Place(1, 0), Place(0, 1), Place(1, 1), Place(0, 2), Place(1, 2)));
    EXPECT_THAT(StretchesOf(grid), ElementsAre(0, 0, 0, 0, 0, 0));
    EXPECT_EQ(frame.width(), 267 - 16);
    EXPECT_EQ(frame.title(), "");
    EXPECT_EQ(grid.verticalSpacing(), 0);
    size(600);
    EXPECT_EQ(frame.title(), "Point ID");
    EXPECT_NE(grid.verticalSpacing(), 0);
    // As wide as the frame wants to be it stays in one row.
    const int wanted = frame.sizeHint().width();
    size(wanted + 16);
    EXPECT_EQ(frame.title(), "Point ID");
    size(wanted + 15);
    EXPECT_EQ(frame.title(), "");
}

// Below 800 twips (53 pixels) of room a chart keeps a height of its own, and so for the width.
TEST_F(GraphTexts, TheChartLeavesRoomBesideAndBelow) {
    frmGraph& form = ShowStability(0);
    form.resize(700, 500);
    // 10500 - 120 - 300 twips by 7500 - 840 - 700.
    EXPECT_EQ(form.Graph1().size(), QSize(672, 397));
    EXPECT_EQ(form.Graph1().pos(), QPoint(8, 56));
    form.Graph1().move(660, 460);
    form.resize(701, 501);
    // 10515 - 9900 and 7515 - 6900 twips are both below 800.
    EXPECT_EQ(form.Graph1().size(), QSize(33, 6));
}

}  // namespace
}  // namespace tarvokol
