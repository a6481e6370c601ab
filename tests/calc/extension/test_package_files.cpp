// The package's files against the tables the code works from: every dialog holds one control of
// the right kind per option, named as the option and showing its initial value, and nothing the
// code does not read; the names the office looks the extension up by agree everywhere.

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <algorithm>
#include <charconv>
#include <set>
#include <string>
#include <vector>

#include "calc/extension/command_options.h"
#include "calc/extension/extension_identity.h"

namespace orv::extension {
namespace {

const std::string kPackage = ORV_EXTENSION_PACKAGE_DIR;

pugi::xml_document load(const std::string& file) {
  pugi::xml_document doc;
  const pugi::xml_parse_result parsed = doc.load_file((kPackage + "/" + file).c_str());
  EXPECT_TRUE(parsed) << file << ": " << parsed.description();
  return doc;
}

std::string attribute(const pugi::xml_node& n, const char* name) { return n.attribute(name).value(); }

// Every element in the dialog's bulletin board, radio buttons inside their group included.
std::vector<pugi::xml_node> controlsOf(const pugi::xml_document& dialog) {
  std::vector<pugi::xml_node> controls;
  for (pugi::xml_node n : dialog.child("dlg:window").child("dlg:bulletinboard").children()) {
    if (std::string(n.name()) == "dlg:radiogroup") {
      for (pugi::xml_node radio : n.children()) controls.push_back(radio);
    } else {
      controls.push_back(n);
    }
  }
  return controls;
}

pugi::xml_node control(const std::vector<pugi::xml_node>& controls, std::string_view id) {
  for (const pugi::xml_node& n : controls) {
    if (n.attribute("dlg:id").value() == id) return n;
  }
  return {};
}

const char* elementFor(Kind kind) {
  switch (kind) {
    case Kind::Flag: return "dlg:checkbox";
    case Kind::Choice: return "dlg:combobox";
    case Kind::Byte:
    case Kind::Long: return "dlg:numericfield";
    case Kind::DataType: return "dlg:menulist";
    default: return "dlg:textfield";
  }
}

std::int64_t whole(const pugi::xml_node& n, const char* attribute) {
  const std::string text = n.attribute(attribute).value();
  std::int64_t v = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), v);
  EXPECT_TRUE(error == std::errc() && end == text.data() + text.size()) << attribute << "=\"" << text << "\"";
  return v;
}

std::vector<std::string> menuItems(const pugi::xml_node& n, std::int64_t* selected = nullptr) {
  std::vector<std::string> items;
  for (pugi::xml_node item : n.child("dlg:menupopup").children("dlg:menuitem")) {
    if (selected != nullptr && item.attribute("dlg:selected").as_bool()) *selected = std::ssize(items);
    items.emplace_back(item.attribute("dlg:value").value());
  }
  return items;
}

// The control shows the option's initial value, and takes what the property takes.
void expectShowsInitial(const pugi::xml_node& n, const PropertyInfo& option) {
  switch (option.kind) {
    case Kind::Flag: EXPECT_EQ(n.attribute("dlg:checked").as_bool(), std::get<bool>(option.initial)); break;
    case Kind::Byte:
    case Kind::Long: {
      const WholeRange range = wholeRangeOf(option.kind);
      EXPECT_EQ(whole(n, "dlg:value"), std::get<std::int64_t>(option.initial));
      EXPECT_EQ(whole(n, "dlg:value-min"), range.least);
      EXPECT_EQ(whole(n, "dlg:value-max"), range.most);
      EXPECT_EQ(attribute(n, "dlg:decimal-accuracy"), "0");
      break;
    }
    case Kind::DataType: {
      std::int64_t selected = -1;
      EXPECT_EQ(menuItems(n, &selected), (std::vector<std::string>{"Numerical", "Nominal"}));
      EXPECT_EQ(selected, std::get<std::int64_t>(option.initial));
      break;
    }
    case Kind::Choice: {
      EXPECT_EQ(menuItems(n), std::vector<std::string>(option.choices.begin(), option.choices.end()));
      EXPECT_EQ(attribute(n, "dlg:value"), std::get<std::string>(option.initial));
      break;
    }
    default: EXPECT_EQ(attribute(n, "dlg:value"), std::get<std::string>(option.initial));
  }
}

TEST(PackageFiles, EveryDialogControlIsAnOptionShowingItsInitialValue) {
  for (const CommandInfo& command : allCommands()) {
    SCOPED_TRACE(std::string(command.name));
    const pugi::xml_document dialog = load("dialogs/" + std::string(command.name) + ".xdl");
    EXPECT_EQ(attribute(dialog.child("dlg:window"), "dlg:id"), command.name);
    const std::vector<pugi::xml_node> controls = controlsOf(dialog);
    std::set<std::string> read = {"OutputNewSheet", "OutputCell", "btnOK", "btnCancel"};
    for (const PropertyInfo& option : command.options) {
      SCOPED_TRACE(std::string(option.name));
      const pugi::xml_node n = control(controls, option.name);
      if (!option.inDialog) {
        EXPECT_FALSE(n) << "an option that changes nothing has a control";
        continue;
      }
      read.insert(std::string(option.name));
      ASSERT_TRUE(n);
      EXPECT_EQ(std::string(n.name()), elementFor(option.kind));
      expectShowsInitial(n, option);
    }
    // A new sheet is the empty output reference; OK and Cancel end the dialog.
    EXPECT_TRUE(control(controls, "OutputNewSheet").attribute("dlg:checked").as_bool());
    EXPECT_FALSE(control(controls, "OutputCell").attribute("dlg:checked").as_bool());
    EXPECT_EQ(attribute(control(controls, "btnOK"), "dlg:button-type"), "ok");
    EXPECT_EQ(attribute(control(controls, "btnCancel"), "dlg:button-type"), "cancel");
    for (const pugi::xml_node& n : controls) {
      const std::string kind = n.name();
      if (kind == "dlg:text" || kind == "dlg:fixedline") continue;
      EXPECT_TRUE(read.contains(n.attribute("dlg:id").value())) << "no option reads " << n.attribute("dlg:id").value();
    }
  }
}

// A control placed over another, or beyond the dialog's edge, hides part of it.
TEST(PackageFiles, DialogControlsNeitherOverlapNorLeaveTheDialog) {
  struct Box {
    std::string id;
    std::int64_t left, top, right, bottom;
  };
  for (const CommandInfo& command : allCommands()) {
    SCOPED_TRACE(std::string(command.name));
    const pugi::xml_document dialog = load("dialogs/" + std::string(command.name) + ".xdl");
    const pugi::xml_node window = dialog.child("dlg:window");
    std::vector<Box> boxes;
    for (const pugi::xml_node& n : controlsOf(dialog)) {
      const std::int64_t left = whole(n, "dlg:left"), top = whole(n, "dlg:top");
      boxes.push_back(
          {n.attribute("dlg:id").value(), left, top, left + whole(n, "dlg:width"), top + whole(n, "dlg:height")});
    }
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      const Box& a = boxes[i];
      EXPECT_TRUE(a.left >= 0 && a.top >= 0 && a.right <= whole(window, "dlg:width") &&
                  a.bottom <= whole(window, "dlg:height"))
          << a.id << " leaves the dialog";
      for (std::size_t j = i + 1; j < boxes.size(); ++j) {
        const Box& b = boxes[j];
        EXPECT_FALSE(a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom)
            << a.id << " overlaps " << b.id;
      }
    }
  }
}

TEST(PackageFiles, TheOfficeFindsTheExtensionByTheNamesTheCodeUses) {
  const pugi::xml_document description = load("description.xml.in");
  EXPECT_EQ(attribute(description.child("description").child("identifier"), "value"), kExtensionIdentifier);

  const pugi::xml_document components = load("orvella.components");
  const pugi::xml_node component = components.child("components").child("component");
  EXPECT_EQ(attribute(component, "uri"), "orvella.uno.so");
  EXPECT_EQ(attribute(component.child("implementation"), "name"), kImplementationName);
  EXPECT_EQ(attribute(component.child("implementation").child("service"), "name"),
            "com.sun.star.frame.ProtocolHandler");

  const pugi::xml_document handlers = load("ProtocolHandler.xcu");
  const pugi::xml_node handler = handlers.child("oor:component-data").child("node").child("node");
  EXPECT_EQ(attribute(handler, "oor:name"), kImplementationName);
  EXPECT_EQ(std::string(handler.child("prop").child_value("value")), std::string(kProtocol) + "*");

  const pugi::xml_document manifest = load("META-INF/manifest.xml");
  std::set<std::string> listed;
  for (pugi::xml_node entry : manifest.child("manifest:manifest").children("manifest:file-entry")) {
    listed.insert(entry.attribute("manifest:full-path").value());
  }
  EXPECT_EQ(listed, (std::set<std::string>{"orvella.components", "ProtocolHandler.xcu", "Addons.xcu"}));
}

TEST(PackageFiles, TheMenuOffersEveryCommandAtTheEndOfDataStatistics) {
  const pugi::xml_document addons = load("Addons.xcu");
  const pugi::xml_node merge = addons.select_node("//node[@oor:name='OfficeMenuBarMerging']/node/node").node();
  ASSERT_TRUE(merge);
  const auto prop = [&](const char* name) {
    return std::string(merge.find_child_by_attribute("prop", "oor:name", name).child_value("value"));
  };
  EXPECT_EQ(prop("MergePoint"), ".uno:DataMenu\\.uno:StatisticsMenu\\.uno:FourierAnalysisDialog");
  EXPECT_EQ(prop("MergeCommand"), "AddAfter");
  EXPECT_EQ(prop("MergeContext"), "com.sun.star.sheet.SpreadsheetDocument");

  std::vector<std::string> entries;
  for (pugi::xml_node item : merge.find_child_by_attribute("node", "oor:name", "MenuItems").children("node")) {
    const std::string url = item.find_child_by_attribute("prop", "oor:name", "URL").child_value("value");
    const std::string title = item.find_child_by_attribute("prop", "oor:name", "Title").child_value("value");
    entries.push_back(url + " " + title);
  }
  std::vector<std::string> expected = {"private:separator "};
  for (const CommandInfo& command : allCommands()) {
    expected.push_back(std::string(kProtocol) + std::string(command.name) + " " + std::string(command.title) + "…");
  }
  EXPECT_EQ(entries, expected);
}

}  // namespace
}  // namespace orv::extension
