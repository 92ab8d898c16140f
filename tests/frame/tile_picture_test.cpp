// SPDX-License-Identifier: MIT
#include <corvane/frame/tile_picture.h>

#include <cairo.h>

#include "support/png_bytes.h"
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/std_font.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/class_registry.h>
#include "runtime/expect_error.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// A PNG of size by size pixels: four quarters in red, green, blue and yellow.
std::vector<unsigned char> quarterPng(int32_t size) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size);
  cairo_t* cr = cairo_create(s);
  const double h = size / 2.0;
  const double colours[4][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}};
  for (int i = 0; i < 4; ++i) {
    cairo_set_source_rgb(cr, colours[i][0], colours[i][1], colours[i][2]);
    cairo_rectangle(cr, (i % 2) * h, (i / 2) * h, h, h);
    cairo_fill(cr);
  }
  cairo_destroy(cr);
  std::vector<unsigned char> bytes = test::pngBytesOf(s);
  cairo_surface_destroy(s);
  return bytes;
}

// A control surface that answers the eight members itself, with a scale the test sets, and logs
// what is asked of it. ScaleX and ScaleY take HiMetric to the scale by a fixed factor.
class FakeTarget : public HostedControl {
 public:
  std::string typeName() const override { return "FakeTarget"; }

  struct Paint {
    float x, y, w, h;
    bool operator==(const Paint&) const = default;
  };
  float left = 0, top = 0, width = 100, height = 50;
  float unitsPerHiMetric = 0.1f;  // 200 HiMetric make a tile of 20
  float xDirection = 1;           // -1: a horizontal scale that runs from right to left
  PictureRef picture;
  bool pictureFails = false;
  std::vector<Paint> paints;
  std::vector<std::string> scaleCalls;

 protected:
  const Dispatch* dispatch() const override {
    static const Dispatch d = [] {
      Dispatch t;
      auto scale = [](FakeTarget& f, Dispatch::Args& a, const char* name) {
        f.scaleCalls.push_back(std::string(name) + "(" + a.at(0).toString() + "," + a.at(1).toString() + ")");
        return a.at(0).toSingle() * f.unitsPerHiMetric;
      };
      DispatchBuilder<FakeTarget>(t)
          .get("ScaleLeft", [](FakeTarget& f) { return f.left; })
          .get("ScaleTop", [](FakeTarget& f) { return f.top; })
          .get("ScaleWidth", [](FakeTarget& f) { return f.width; })
          .get("ScaleHeight", [](FakeTarget& f) { return f.height; })
          .get("Picture",
               [](FakeTarget& f) {
                 if (f.pictureFails) throw RuntimeError(err::MemberNotFound);
                 return f.picture;
               })
          .method("ScaleX",
                  [scale](FakeTarget& f, Dispatch::Args& a) { return f.xDirection * scale(f, a, "ScaleX"); })
          .method("ScaleY", [scale](FakeTarget& f, Dispatch::Args& a) { return scale(f, a, "ScaleY"); })
          .method("PaintPicture", [](FakeTarget& f, Dispatch::Args& a) {
            EXPECT_EQ(a.at(0).as<PictureRef>(), f.picture);
            f.paints.push_back(
                {a.at(1).toSingle(), a.at(2).toSingle(), a.at(3).toSingle(), a.at(4).toSingle()});
          });
      return t;
    }();
    return &d;
  }
};

// A real picture box that logs the PaintPicture calls it gets by name.
class RecordingPictureBox : public PictureBox {
 public:
  std::vector<std::string> paints;
  Variant invoke(std::string_view member, CallType type, Dispatch::Args& args) override {
    if (member == "PaintPicture")
      paints.push_back(args.at(1).toString() + "," + args.at(2).toString() + "," + args.at(3).toString() +
                       "," + args.at(4).toString());
    return PictureBox::invoke(member, type, args);
  }
};

class TilePictureTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    picture = StdPicture::fromBytes(quarterPng(48));
    ASSERT_TRUE(picture);
    target = std::make_shared<FakeTarget>();
    target->picture = picture;
  }
  void TearDown() override {
    target.reset();
    picture.reset();
    DesktopTest::TearDown();
  }
  // The tiles painted, as their top left corners.
  std::vector<std::pair<float, float>> corners() const {
    std::vector<std::pair<float, float>> out;
    for (const auto& p : target->paints) out.emplace_back(p.x, p.y);
    return out;
  }
  // The tiles of a grid, row by row.
  static std::vector<std::pair<float, float>> grid(std::vector<float> xs, std::vector<float> ys) {
    std::vector<std::pair<float, float>> out;
    for (float y : ys)
      for (float x : xs) out.emplace_back(x, y);
    return out;
  }
  // A tile of 20 by 20 on a target of 100 by 50.
  void initTwenty() {
    ASSERT_EQ(picture->Width(), 1270);  // 48 pixels at 96 per inch
    target->unitsPerHiMetric = 20.0f / 1270.0f;
    tile.Init(target, picture);
    ASSERT_EQ(tile.tileWidth(), 20.0f);
    ASSERT_EQ(tile.tileHeight(), 20.0f);
    target->paints.clear();
  }

  PictureRef picture;
  std::shared_ptr<FakeTarget> target;
  clsTilePicture tile;
};

// ---- Target ----------------------------------------------------------------------------------

TEST_F(TilePictureTest, AcceptsFormsPictureBoxesControlsAndNothing) {
  FormRef f = Form::create("frmTiles");
  tile.setObject(f);
  EXPECT_EQ(tile.Object(), f);
  auto pic = f->add("PictureBox", "picTiles", nullptr, 0, 0, 1500, 1500);
  tile.setObject(pic);
  EXPECT_EQ(tile.Object(), pic);
  tile.setObject(pic->extenderRef());  // the host's wrapper stands for its control
  EXPECT_EQ(tile.Object(), pic->extenderRef());
  tile.setObject(target);
  EXPECT_EQ(tile.Object(), target);
  tile.setObject(nullptr);
  EXPECT_EQ(tile.Object(), nullptr);
}

TEST_F(TilePictureTest, MultipleDocumentParentIsRefusedWith380AndChangesNothing) {
  FormRef f = Form::create("frmPlain");
  FormRef mdi = Form::create("frmMdi");
  mdi->setMdiParent(true);
  tile.setObject(f);
  try {
    tile.setObject(mdi);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
  EXPECT_EQ(tile.Object(), f);
  EXPECT_THROW(tile.Init(mdi, picture), RuntimeError);
  EXPECT_EQ(tile.Object(), f);
}

TEST_F(TilePictureTest, OtherObjectsAreRefusedWith380) {
  tile.setObject(target);
  for (ObjectRef other : std::vector<ObjectRef>{StdFont::create(), std::make_shared<PropertyBag>(), picture,
                                                std::make_shared<clsTilePicture>()}) {
    try {
      tile.setObject(other);
      FAIL() << other->typeName();
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 380) << other->typeName();
    }
    EXPECT_EQ(tile.Object(), target);
  }
  // By name as well.
  try {
    tile.let("Object", Variant(StdFont::create()));
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
}

// ---- Init ------------------------------------------------------------------------------------

TEST_F(TilePictureTest, InitMeasuresTheTileInTheTargetsScale) {
  tile.Init(target, picture);
  EXPECT_EQ(tile.Picture(), picture);
  EXPECT_EQ(tile.Object(), target);
  ASSERT_EQ(target->scaleCalls.size(), 2u);
  EXPECT_EQ(target->scaleCalls[0], "ScaleX(1270,8)");
  EXPECT_EQ(target->scaleCalls[1], "ScaleY(1270,8)");
  EXPECT_EQ(tile.tileWidth(), 127.0f);
}

TEST_F(TilePictureTest, TileSizeGoesThroughItsTextOfSevenDigits) {
  target->unitsPerHiMetric = 123.45635f / 1270.0f;
  tile.Init(target, picture);
  const float exact = 1270.0f * (123.45635f / 1270.0f);
  EXPECT_NE(tile.tileWidth(), exact);
  EXPECT_EQ(tile.tileWidth(), 123.4564f);
}

TEST_F(TilePictureTest, InitWithoutAPictureTakesTheTargetsOwn) {
  tile.Init(target);
  EXPECT_EQ(tile.Picture(), picture);
}

TEST_F(TilePictureTest, ErrorReadingTheTargetsPictureIsIgnored) {
  auto other = StdPicture::fromBytes(quarterPng(48));
  tile.setPicture(other);
  target->pictureFails = true;
  tile.Init(target);
  EXPECT_EQ(tile.Picture(), other) << "the picture stays as it was";
  EXPECT_EQ(tile.tileWidth(), 127.0f);
}

// ---- Paint and Resize ------------------------------------------------------------------------

TEST_F(TilePictureTest, FirstPaintCoversTheWholeSurfaceFromTheOrigin) {
  initTwenty();
  tile.Paint();
  // Columns up to and including the right edge, rows up to the bottom edge.
  EXPECT_EQ(corners(), grid({0, 20, 40, 60, 80, 100}, {0, 20, 40}));
  for (const auto& p : target->paints) {
    EXPECT_EQ(p.w, 20.0f);
    EXPECT_EQ(p.h, 20.0f);
  }
}

TEST_F(TilePictureTest, TilesStartAtTheScaleOrigin) {
  initTwenty();
  target->left = -10;
  target->top = 5;
  target->width = 40;
  target->height = 20;
  tile.Paint();
  EXPECT_EQ(corners(), grid({-10, 10, 30}, {5, 25}));
}

TEST_F(TilePictureTest, ShrinkLeadsToAFullRepaint) {
  initTwenty();
  tile.Paint();
  target->width = 70;
  target->height = 30;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 0);
  target->paints.clear();
  tile.Paint();
  EXPECT_EQ(corners(), grid({0, 20, 40, 60}, {0, 20}));
}

TEST_F(TilePictureTest, SecondPaintWithoutResizeIsAFullRepaint) {
  initTwenty();
  tile.Paint();
  target->paints.clear();
  tile.Paint();
  EXPECT_EQ(target->paints.size(), 18u);
}

TEST_F(TilePictureTest, WidthGrowthPaintsOnlyTilesPastTheOldWidthOverFullHeightPlusOneRow) {
  initTwenty();
  tile.Paint();
  target->width = 150;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 1);
  target->paints.clear();
  tile.Paint();
  // Columns whose right edge reaches the old width 100, over the rows up to one beyond the
  // bottom; and that extra row over every column.
  auto expected = grid({80, 100, 120, 140}, {0, 20, 40});
  for (float x : {0.0f, 20.0f, 40.0f, 60.0f, 80.0f, 100.0f, 120.0f, 140.0f}) expected.emplace_back(x, 60.0f);
  EXPECT_EQ(corners(), expected);
  EXPECT_EQ(tile.growthFlags(), 0);
}

TEST_F(TilePictureTest, HeightGrowthPaintsOnlyTilesBelowTheOldHeightPlusOneColumn) {
  initTwenty();
  tile.Paint();
  target->height = 90;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 2);
  target->paints.clear();
  tile.Paint();
  // Rows whose bottom edge reaches the old height 50, over the columns up to one beyond the
  // right edge; and the columns reaching that far (x + 20 >= 120) over every row.
  std::vector<std::pair<float, float>> expected;
  for (float y : {0.0f, 20.0f, 40.0f, 60.0f, 80.0f})
    for (float x : {0.0f, 20.0f, 40.0f, 60.0f, 80.0f, 100.0f, 120.0f})
      if (y + 20 >= 50 || x + 20 >= 120) expected.emplace_back(x, y);
  EXPECT_EQ(corners(), expected);
}

TEST_F(TilePictureTest, GrowthInBothDirectionsPaintsTheLShapedBand) {
  initTwenty();
  tile.Paint();
  target->width = 130;
  target->height = 70;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 3);
  target->paints.clear();
  tile.Paint();
  std::vector<std::pair<float, float>> expected;
  for (float y : {0.0f, 20.0f, 40.0f, 60.0f})
    for (float x : {0.0f, 20.0f, 40.0f, 60.0f, 80.0f, 100.0f, 120.0f})
      if (x + 20 >= 100 || y + 20 >= 50) expected.emplace_back(x, y);
  EXPECT_EQ(corners(), expected);
  // After the paint the new size is the one to compare with.
  target->width = 120;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 0);
}

TEST_F(TilePictureTest, SecondResizeOverridesTheFlagsAgainstTheLastPaint) {
  initTwenty();
  tile.Paint();
  target->width = 150;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 1);
  target->width = 90;
  target->height = 80;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 2) << "compared with the size of the last paint, 100 by 50";
  target->width = 90;
  target->height = 40;
  tile.Resize();
  EXPECT_EQ(tile.growthFlags(), 0);
  target->paints.clear();
  tile.Paint();
  EXPECT_EQ(corners(), grid({0, 20, 40, 60, 80}, {0, 20, 40}));
}

TEST_F(TilePictureTest, ResizeIgnoresErrorsAndPaintPassesThemOn) {
  clsTilePicture empty;
  EXPECT_NO_THROW(empty.Resize());
  EXPECT_EQ(empty.growthFlags(), 0);
  try {
    empty.Paint();
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::ObjectNotSet);
  }
}

TEST_F(TilePictureTest, PaintAfterAnEmptyPictureFailsInsteadOfLoopingForever) {
  target->picture = StdPicture::empty();
  tile.Init(target);
  EXPECT_EQ(tile.tileWidth(), 0.0f);
  EXPECT_RUNTIME_ERROR(tile.Paint(), 5);
  EXPECT_TRUE(target->paints.empty());
}

TEST_F(TilePictureTest, ReversedScalePaintsOneColumn) {
  // The scale runs from 100 on the left to 0 on the right: a tile is -20 wide. The column loop
  // starts at 100, and its first step to 80 already leaves the range up to 0.
  target->left = 100;
  target->width = -100;
  target->xDirection = -1;
  target->unitsPerHiMetric = 20.0f / 1270.0f;
  tile.Init(target, picture);
  EXPECT_EQ(tile.tileWidth(), -20.0f);
  EXPECT_EQ(tile.tileHeight(), 20.0f);
  tile.Paint();
  EXPECT_EQ(corners(), grid({100}, {0, 20, 40}));
  ASSERT_FALSE(target->paints.empty());
  EXPECT_EQ(target->paints[0].w, -20.0f);
  EXPECT_EQ(target->paints[0].h, 20.0f);
}

TEST_F(TilePictureTest, ReversedScaleNarrowerThanATileIsRefusedInsteadOfLoopingForever) {
  // From 100 to 90: the step to 80 stays at or below the end for ever.
  target->left = 100;
  target->width = -10;
  target->xDirection = -1;
  target->unitsPerHiMetric = 20.0f / 1270.0f;
  tile.Init(target, picture);
  EXPECT_RUNTIME_ERROR(tile.Paint(), 5);
  EXPECT_TRUE(target->paints.empty()) << "refused before anything is painted";
}

TEST_F(TilePictureTest, TileTooSmallToMoveAHugeScaleIsRefused) {
  target->width = 1e9f;
  target->unitsPerHiMetric = 1.0f / 1270.0f;  // a tile of 1 over a range of 1e9
  tile.Init(target, picture);
  EXPECT_RUNTIME_ERROR(tile.Paint(), 5);
}

// ---- Real surfaces ---------------------------------------------------------------------------

TEST_F(TilePictureTest, TilesAPictureBoxAndRepaintsOnlyTheUncoveredStrip) {
  FormRef f = Form::create("frmTiled", 4500, 3000);
  f->Show();
  auto pic = std::make_shared<RecordingPictureBox>();
  f->add(pic, "PictureBox", "picTiled", nullptr, 0, 0, 1500, 1200);  // 100 by 80 pixels
  pic->surface().setScaleMode(3);
  tile.Init(pic, picture);
  EXPECT_EQ(tile.tileWidth(), 48.0f);
  tile.Paint();
  // Three columns (0, 48, 96) by two rows (0, 48).
  EXPECT_EQ(pic->paints, (std::vector<std::string>{"0,0,48,48", "48,0,48,48", "96,0,48,48", "0,48,48,48",
                                                   "48,48,48,48", "96,48,48,48"}));
  HDC hdc = pic->surface().hdc();
  EXPECT_EQ(gdi().GetPixel(hdc, 5, 5), RGB(255, 0, 0));
  EXPECT_EQ(gdi().GetPixel(hdc, 30, 5), RGB(0, 255, 0));
  EXPECT_EQ(gdi().GetPixel(hdc, 5, 30), RGB(0, 0, 255));
  EXPECT_EQ(gdi().GetPixel(hdc, 30, 30), RGB(255, 255, 0));
  EXPECT_EQ(gdi().GetPixel(hdc, 53, 53), RGB(255, 0, 0)) << "the second tile starts at 48";
  EXPECT_EQ(gdi().GetPixel(hdc, 99, 79), RGB(0, 0, 255));

  // Wider by 60 pixels: only the columns from 96 on, over the rows 0 to 96.
  pic->extenderObject().setWidth(2400);
  tile.Resize();
  pic->paints.clear();
  tile.Paint();
  EXPECT_EQ(pic->paints,
            (std::vector<std::string>{"96,0,48,48", "144,0,48,48", "96,48,48,48", "144,48,48,48",
                                      "0,96,48,48", "48,96,48,48", "96,96,48,48", "144,96,48,48"}));
  EXPECT_EQ(gdi().GetPixel(hdc, 150, 5), RGB(255, 0, 0));
  EXPECT_EQ(gdi().GetPixel(hdc, 159, 79), RGB(0, 0, 255));
}

TEST_F(TilePictureTest, TilesAFormInTwipsByName) {
  FormRef f = Form::create("frmTiledByName", 1800, 1200);  // 120 by 80 pixels
  f->Show();
  ObjectRef t = ClassRegistry::instance().create("clsTilePicture");
  ASSERT_TRUE(t);
  EXPECT_EQ(t->typeName(), "clsTilePicture");
  t->call("Init", {f, picture});
  EXPECT_EQ(t->get("Object").toObject(), f);
  EXPECT_EQ(t->get("Picture").toObject(), picture);
  t->call("Paint");
  HDC hdc = f->surface().hdc();
  EXPECT_EQ(gdi().GetPixel(hdc, 100, 5), RGB(255, 0, 0));
  EXPECT_EQ(gdi().GetPixel(hdc, 119, 79), RGB(0, 0, 255));
  t->call("Resize");
  // The form's own picture when none is given.
  f->surface().setPicture(picture);
  auto other = std::static_pointer_cast<clsTilePicture>(ClassRegistry::instance().create("clsTilePicture"));
  other->call("Init", {f});
  EXPECT_EQ(other->Picture(), picture);
  EXPECT_NEAR(other->tileWidth(), 720.0f, 0.001f);  // 48 pixels in twips
}

}  // namespace
}  // namespace corvane
