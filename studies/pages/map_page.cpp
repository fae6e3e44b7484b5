// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/map_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMetaObject>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <memory>
#include <thread>
#include <utility>

#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "qt/charts/study_view.h"
#include "qt/session/qt_text.h"
#include "studies/model/panel_reading.h"
#include "studies/model/study_csv.h"
#include "studies/model/study_model.h"

namespace tarvokol {
namespace {

constexpr int kNoField = -1;

PanelField FieldIn(const QComboBox& box) {
    return static_cast<PanelField>(box.currentData().toInt());
}

void FillFields(QComboBox& box) {
    for (const PanelFieldFacts& facts : kPanelFields) box.addItem(facts.title, static_cast<int>(facts.field));
}

QComboBox* MakeChoice(QWidget& page, const QString& name, const QString& accessible, const QString& tip) {
    auto* box = new QComboBox(&page);
    box->setObjectName(name);
    box->setAccessibleName(accessible);
    box->setToolTip(tip);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int kLeastCharacters = 4;
    box->setMinimumContentsLength(kLeastCharacters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

std::string WithUnit(double value, const std::string& unit) {
    std::string text;
    AppendShortest(text, value);
    return unit.empty() ? text : text + " " + unit;
}

unsigned AllThreads() {
    return std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace

MapPage::MapPage(StudyModel& model, QWidget* parent)
    : StudyPage(parent), model_(model), work_([this](std::function<void()> call) {
          QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
      }) {
    Build();
    ShowChoice();
    Connect();
    model_.Tell([this] { Model_Changed(); });
    Model_Changed();
}

void MapPage::Build() {
    x_ = MakeChoice(*this, "Map_X", "Field from left to right", "The field from left to right");
    y_ = MakeChoice(*this, "Map_Y", "Field from bottom to top", "The field from bottom to top");
    figure_ = MakeChoice(*this, "Map_Figure", "Figure", "The figure whose lines are drawn");
    FillFields(*x_);
    y_->addItem("None (curves)", kNoField);
    FillFields(*y_);
    for (const StudyFigure& figure : kStudyFigures) figure_->addItem(figure.legend);
    swap_ = new QPushButton("S&wap", this);
    swap_->setObjectName("Map_Swap");
    swap_->setToolTip("Exchange the two fields");
    view_ = new StudyView(this);
    view_->setObjectName("Map_View");
    view_->setAccessibleName("Map");
    reading_ = new QLabel(this);
    reading_->setObjectName("Map_Reading");
    reading_->setWordWrap(true);
    reading_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    reading_->setTextFormat(Qt::PlainText);
    constexpr int kReadingLines = 3;
    reading_->setFixedHeight(reading_->fontMetrics().lineSpacing() * kReadingLines);
    take_ = new QPushButton("&Take This Place", this);
    take_->setObjectName("Map_Take");
    take_->setToolTip(
        "Give the project the figures of the marked place, as a double click or Enter on the map does; "
        "Undo takes them back. The arrow keys mark a place, too");

    auto* choices = new QHBoxLayout;
    const auto add = [&](const QString& text, QComboBox* box) {
        auto* label = new QLabel(text, this);
        label->setBuddy(box);
        choices->addWidget(label);
        choices->addWidget(box, 1);
    };
    add("Fi&gure", figure_);
    add("ove&r", x_);
    add("a&nd", y_);
    choices->addWidget(swap_);
    auto* foot = new QHBoxLayout;
    foot->addWidget(reading_, 1);
    foot->addWidget(take_, 0, Qt::AlignTop);
    auto* page = new QVBoxLayout(this);
    page->addLayout(choices);
    page->addWidget(view_, 1);
    page->addLayout(foot);
}

void MapPage::Connect() {
    for (QComboBox* box : {x_, y_, figure_})
        connect(box, &QComboBox::currentIndexChanged, this, &MapPage::Field_Chosen);
    connect(swap_, &QPushButton::clicked, this, &MapPage::Swap_Clicked);
    connect(take_, &QPushButton::clicked, this, &MapPage::Take_Clicked);
    connect(view_, &StudyView::Pointed, this, &MapPage::View_Pointed);
    connect(view_, &StudyView::PointerLeft, this, &MapPage::View_Left);
    connect(view_, &StudyView::Stepped, this, &MapPage::View_Stepped);
    connect(view_, &StudyView::Taken, this, &MapPage::View_Taken);
    connect(view_, &StudyView::TakenHere, this, &MapPage::Take_Clicked);
    connect(view_, &StudyView::Escaped, this, &MapPage::View_Escaped);
}

MapRequest MapPage::Request() const {
    return MapRequestOf(model_.Requests().map, model_.Requests().ranges);
}

void MapPage::Choose(PanelField x, std::optional<PanelField> y, const StudyFigure& figure) {
    model_.AskFor(MapChoice{x, y, &figure});
}

void MapPage::Field_Chosen() {
    MapChoice choice{FieldIn(*x_), std::nullopt,
                     &kStudyFigures[static_cast<std::size_t>(figure_->currentIndex())]};
    if (y_->currentData().toInt() != kNoField) choice.y = FieldIn(*y_);
    model_.AskFor(choice);
}

void MapPage::Swap_Clicked() {
    const MapRequest request = Request();
    if (request.y) Choose(request.y->field, request.x.field, *request.figure);
}

// What was asked of other fields is not wanted any more.
void MapPage::ShowChoice() {
    shown_ = model_.Requests().map;
    const QSignalBlocker quiet_x(x_), quiet_y(y_), quiet_figure(figure_);
    x_->setCurrentIndex(x_->findData(static_cast<int>(shown_.x)));
    y_->setCurrentIndex(y_->findData(shown_.y ? static_cast<int>(*shown_.y) : kNoField));
    figure_->setCurrentIndex(figure_->findText(shown_.figure->legend));
    work_.Drop();
    Mark(std::nullopt, MarkedBy::Nobody);
    swap_->setEnabled(Request().y.has_value());
}

void MapPage::Model_Changed() {
    if (shown_ != model_.Requests().map) ShowChoice();
    Ask();
    ShowReading();
}

// What nobody sees waits until it is seen.
void MapPage::showEvent(QShowEvent* event) {
    StudyPage::showEvent(event);
    Ask();
}

void MapPage::Ask() {
    if (!isVisible()) return;
    const MapRequest request = Request();
    const std::string text = DocumentText(model_.Document()) + model_.FileName();
    if (asked_ == request && asked_text_ == text) return;
    asked_ = request;
    asked_text_ = text;
    work_.Ask([this, request, panel = model_.ProjectPanel(),
               title = model_.Title()](StudyObserver& observer) {
        auto outcome =
            std::make_shared<MapOutcome>(CalculateMapStudy(request, panel, title, AllThreads(), observer));
        return [this, outcome] { Show(std::move(*outcome)); };
    });
}

void MapPage::Show(MapOutcome outcome) {
    if (auto* map = std::get_if<MapPicture>(&outcome)) view_->Show(std::move(*map));
    if (auto* curves = std::get_if<CurvesPicture>(&outcome)) view_->Show(std::move(*curves));
    if (const auto* words = std::get_if<std::string>(&outcome)) view_->ShowWords(ToQt(*words));
    view_->SetPlace(place_);
    emit Shown();
}

GridPoint MapPage::Rounded(const GridPoint& place) const {
    const MapRequest request = Request();
    const auto rounded = [](const StudyAxis& axis, double value) {
        const FieldScale scale(axis.field, axis.range);
        return scale.Value(scale.Nearest(value));
    };
    return {rounded(request.x, place.x), request.y ? rounded(*request.y, place.y) : 0.0};
}

GridPoint MapPage::ProjectPlace() const {
    const MapRequest request = Request();
    const PanelInputs& inputs = model_.Document().inputs;
    return {ValueOfField(inputs, request.x.field), request.y ? ValueOfField(inputs, request.y->field) : 0.0};
}

void MapPage::View_Pointed(double x, double y) {
    Mark(Rounded({x, y}), MarkedBy::Pointer);
}

void MapPage::View_Left() {
    if (marked_by_ == MarkedBy::Pointer) Mark(std::nullopt, MarkedBy::Nobody);
}

void MapPage::View_Stepped(int right, int up) {
    const MapRequest request = Request();
    GridPoint place = place_ ? *place_ : Rounded(ProjectPlace());
    const auto step = [](const StudyAxis& axis, double& value, int by) {
        const FieldScale scale(axis.field, axis.range);
        value = scale.Value(std::clamp(scale.Nearest(value) + by, scale.First(), scale.Last()));
    };
    step(request.x, place.x, right);
    if (request.y) step(*request.y, place.y, up);
    Mark(place, MarkedBy::Keys);
}

void MapPage::View_Taken(double x, double y) {
    Mark(Rounded({x, y}), MarkedBy::Pointer);
    Take_Clicked();
}

void MapPage::Take_Clicked() {
    if (!place_) return;
    const MapRequest request = Request();
    std::vector<std::pair<PanelField, double>> values{{request.x.field, place_->x}};
    if (request.y) values.emplace_back(request.y->field, place_->y);
    model_.SetAll(values, "Place on the map");
}

void MapPage::View_Escaped() {
    Mark(std::nullopt, MarkedBy::Nobody);
}

void MapPage::Mark(const std::optional<GridPoint>& place, MarkedBy by) {
    place_ = place;
    marked_by_ = by;
    view_->SetPlace(place);
    ShowReading();
}

Panel MapPage::PanelAt(const GridPoint& place) const {
    const MapRequest request = Request();
    Panel panel = model_.ProjectPanel();
    StoreInField(panel, request.x.field, place.x);
    if (request.y) StoreInField(panel, request.y->field, place.y);
    return panel;
}

std::string MapPage::WordsOfPlace(const GridPoint& place) const {
    const MapRequest request = Request();
    const auto words = [this](PanelField field, double value) {
        return std::string(TitleOfField(field)) + " " +
               WithUnit(value, UnitOfField(field, model_.ProjectUnits()));
    };
    std::string text = words(request.x.field, place.x);
    if (request.y) text += ", " + words(request.y->field, place.y);
    return text;
}

void MapPage::ShowReading() {
    take_->setEnabled(place_.has_value());
    std::string text = "The project: ";
    Panel panel = model_.ProjectPanel();
    if (place_) {
        panel = PanelAt(*place_);
        text = WordsOfPlace(*place_) + ": ";
    }
    PanelEvaluator evaluator(panel, true);
    const PanelFigures& figures = evaluator.Evaluate();
    text += FiguresInWords(figures, panel);
    reading_->setText(ToQt(text));
    // A figure has no bounds; of a panel that has none the words alone tell.
    const double figure = figures.*Request().figure->value;
    const double now = std::isfinite(figure) ? figure : 0.0;
    view_->Tell(ToQt(text), {now, now, now});
}

AnyStudyPicture MapPage::PictureNow() const {
    return view_->Shown();
}

std::string MapPage::PictureName() const {
    return Request().y ? "map" : "curves";
}

std::string MapPage::CommandNow() const {
    return model_.Path().empty() ? "" : CommandOfMap(Request(), model_.Path());
}

std::vector<std::string> MapPage::ReportNow() const {
    return LinesOfPanel(model_.ProjectPanel(), model_.Reading());
}

std::string MapPage::CsvNow() const {
    try {
        SweepRequest sweep = SweepOf(Request(), model_.ProjectPanel());
        sweep.threads = AllThreads();
        return CsvOfSweep(sweep);
    } catch (const StudyRefusal&) {
        return "";  // the words in place of the map say why
    }
}

}  // namespace tarvokol
