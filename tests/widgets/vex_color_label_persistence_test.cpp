// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/extender.h>
#include <corvane/host/form_file.h>
#include <corvane/host/property_bag.h>
#include <corvane/runtime/class_registry.h>
#include "support/label_fixture.h"

namespace corvane {
namespace {

using test::LabelTest;

const std::vector<std::string> kKeyOrder = {"ForeColor", "BackColor", "Font",        "Caption",     "Autosize",
                                            "WordWrap",  "Enabled",   "MouseIcon",   "MousePointer"};

TEST_F(LabelTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  label->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  auto other = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label2", nullptr, 0, 0, -1, -1, &bag));
  EXPECT_EQ(bag.readOrder(), kKeyOrder);
}

TEST_F(LabelTest, BagWrittenAfterInitPropertiesHoldsNoDefault) {
  PropertyBag bag;
  label->WriteProperties(bag);
  // The caption's stored default is the control's name, so the empty caption is stored.
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "Caption");
  EXPECT_EQ(bag.entries()[0].second.toString(), "");
}

TEST_F(LabelTest, NewControlAndOneFromAnEmptyBagAgree) {
  PropertyBag empty;
  auto loaded = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label2", nullptr, 0, 0, -1, -1, &empty));
  EXPECT_EQ(loaded->ForeColor(), label->ForeColor());
  EXPECT_EQ(loaded->BackColor(), label->BackColor());
  EXPECT_EQ(loaded->Font(), label->Font());
  EXPECT_EQ(loaded->Autosize(), label->Autosize());
  EXPECT_EQ(loaded->WordWrap(), label->WordWrap());
  EXPECT_EQ(loaded->Enabled(), label->Enabled());
  EXPECT_EQ(loaded->MousePointer(), label->MousePointer());
  EXPECT_EQ(loaded->MouseIcon()->Handle(), label->MouseIcon()->Handle());
  // The one stated difference: a new caption is empty, a stored one defaults to the name.
  EXPECT_EQ(label->Caption(), "");
  EXPECT_EQ(loaded->Caption(), "Label2");
}

TEST_F(LabelTest, NewLabelTakesItsContainersBackColor) {
  form->surface().setBackColor(0x336699);
  auto l = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label2"));
  EXPECT_EQ(l->BackColor(), 0x336699);
  form->surface().setBackColor(0x112233);
  EXPECT_EQ(l->BackColor(), 0x336699) << "later changes of the container are not tracked";
}

TEST_F(LabelTest, ReadingPropertiesDoesNotRepaint) {
  PropertyBag bag;
  bag.set("Caption", "<b>x</b>");
  auto l = std::make_shared<VexColorLabel>();
  int drawsBefore = 0;
  form->add(l, "VexColorLabel", "Label2", nullptr, 0, 0, -1, -1, nullptr);
  l->ReadProperties(bag);
  EXPECT_EQ(l->Caption(), "<b>x</b>");
  EXPECT_EQ(l->Parts().ubound(), 1);  // still the pieces of the first paint of the empty caption
  EXPECT_EQ(l->Parts()(1).Text, "");
  (void)drawsBefore;
}

TEST_F(LabelTest, EverySetterReportsEvenAnUnchangedValue) {
  label->controlSite().changedKeys.clear();
  form->setDirty(false);
  label->setCaption("a");
  label->setCaption("a");
  label->setWordWrap(false);
  EXPECT_EQ(label->controlSite().changedKeys, (std::vector<std::string>{"Caption", "Caption", "WordWrap"}));
  EXPECT_TRUE(form->dirty());
}

TEST_F(LabelTest, FontCannotBeNothing) {
  try {
    label->setFont(nullptr);
    FAIL() << "expected error 380";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
    EXPECT_EQ(e.description(), "Cannot set Font to Nothing");
  }
}

TEST_F(LabelTest, FontIsSharedByReference) {
  auto font = StdFont::create(FontSpec{"Arial", 12});
  label->setFont(font);
  font->setUnderline(true);
  EXPECT_TRUE(label->Font()->Underline());
}

TEST_F(LabelTest, EnabledInTheDesignerKeepsTheSurfaceEnabled) {
  form->setUserMode(false);
  label->setEnabled(false);
  EXPECT_FALSE(label->Enabled());
  EXPECT_TRUE(label->surface().Enabled());
  form->setUserMode(true);
  label->setEnabled(false);
  EXPECT_FALSE(label->surface().Enabled());
}

TEST_F(LabelTest, CreatedByNameAndByClassIdentifier) {
  auto byName = ClassRegistry::instance().create("VexColorLabel");
  auto byId = ClassRegistry::instance().createById("5CAE799A-259E-45FD-B4BC-CACA3535B2D3");
  EXPECT_EQ(byName->typeName(), "VexColorLabel");
  EXPECT_EQ(byId->typeName(), "VexColorLabel");
  auto placed = form->add(std::dynamic_pointer_cast<HostedControl>(byId), "VexColorLabel", "Label9");
  placed->let("Caption", Variant("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile"));
  EXPECT_EQ(placed->get("caption").toString(), "<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
}

TEST_F(LabelTest, ContainerMembersAreReachedThroughTheExtender) {
  Variant back = label->extenderObject().Container()->get("BackColor");
  EXPECT_EQ(back.toLong(), form->surface().BackColor());
  EXPECT_EQ(label->extenderObject().get("Caption").toString(), "") << "the extender passes on the control's members";
}

// A container that offers no BackColor: the label's InitProperties must shrug it off.
class BareContainer : public HostedControl {
 public:
  std::string typeName() const override { return "BareContainer"; }
};

TEST_F(LabelTest, FailingContainerMemberLeavesTheControlUsable) {
  auto box = std::make_shared<BareContainer>();
  form->add(box, "BareContainer", "Box1", nullptr, 0, 600, 3000, 1000);
  auto inner = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label3", box.get(), 0, 0, 2000, 300));
  ASSERT_TRUE(inner);
  EXPECT_THROW(inner->containerMember("BackColor"), RuntimeError);
  EXPECT_EQ(inner->BackColor(), static_cast<OLE_COLOR>(0x8000000F)) << "the surface keeps its own colour";
  inner->setCaption("<b>geht</b>");
  EXPECT_EQ(inner->Parts()(1).Text, "geht");
}

TEST_F(LabelTest, FormWithTwoLabelsSurvivesSaveAndLoad) {
  label->setCaption("<b>Fett</b> und <c&HFF>rot</c>");
  label->setForeColor(0x804020);
  label->setWordWrap(true);
  auto second = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label2", nullptr, 200, 700, 2500, 400));
  second->setAutosize(true);
  second->setFont(StdFont::create(FontSpec{"Times New Roman", 14, true, true, false, true}));
  second->setCaption("zweites <i>Label</i>");
  second->setMousePointer(99);
  second->setBackColor(0xEEDDCC);

  std::string text = FormFile::save(*form);
  form->Unload();
  FormRef again = FormFile::load(text);
  auto a = std::dynamic_pointer_cast<VexColorLabel>(again->control("Label1"));
  auto b = std::dynamic_pointer_cast<VexColorLabel>(again->control("Label2"));
  ASSERT_TRUE(a && b);
  EXPECT_EQ(a->Caption(), "<b>Fett</b> und <c&HFF>rot</c>");
  EXPECT_EQ(a->ForeColor(), 0x804020);
  EXPECT_TRUE(a->WordWrap());
  EXPECT_EQ(b->Caption(), "zweites <i>Label</i>");
  EXPECT_TRUE(b->Autosize());
  EXPECT_EQ(b->Font()->Name(), "Times New Roman");
  EXPECT_DOUBLE_EQ(b->Font()->Size(), 14);
  EXPECT_TRUE(b->Font()->Bold());
  EXPECT_TRUE(b->Font()->Italic());
  EXPECT_TRUE(b->Font()->Strikethrough());
  EXPECT_EQ(b->MousePointer(), 99);
  EXPECT_EQ(b->BackColor(), 0xEEDDCC);
  EXPECT_EQ(FormFile::save(*again), text) << "a second save writes the same file";
}

TEST_F(LabelTest, FormWithAPlainBackColourLoads) {
  form->surface().setBackColor(0x336699);
  std::string text = FormFile::save(*form);
  form->Unload();
  FormRef again = FormFile::load(text);
  EXPECT_EQ(again->surface().BackColor(), 0x336699);
}

TEST_F(LabelTest, MalformedFormFileChangesNothing) {
  std::string good = FormFile::save(*form);
  form->Unload();
  size_t formsBefore = Forms::all().size();
  int64_t objectsBefore = Object::liveCount();
  for (std::string bad : {std::string("{not json"), std::string("[]"),
                          std::string(R"({"format":"corvane-form","version":1})")}) {
    EXPECT_THROW(FormFile::load(bad), FormFileError) << bad;
  }
  std::string wrongType = good;
  auto at = wrongType.find("\"String\"");
  ASSERT_NE(at, std::string::npos);
  wrongType.replace(at, 8, "\"Long\"");
  EXPECT_THROW(FormFile::load(wrongType), FormFileError);
  std::string unknownClass = good;
  unknownClass.replace(unknownClass.find("VexColorLabel"), 13, "VexNoSuchThing");
  EXPECT_THROW(FormFile::load(unknownClass), FormFileError);
  std::string fontAsNumber = good;
  auto fontAt = fontAsNumber.find("\"Font\": {");
  ASSERT_NE(fontAt, std::string::npos);
  fontAsNumber.replace(fontAt, 9, "\"Long\": 5, \"x\": {");
  EXPECT_THROW(FormFile::load(fontAsNumber), FormFileError);
  EXPECT_EQ(Forms::all().size(), formsBefore);
  EXPECT_EQ(Object::liveCount(), objectsBefore);
  EXPECT_TRUE(FormFile::load(good));
}

}  // namespace
}  // namespace corvane
