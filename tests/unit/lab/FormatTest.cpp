#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "clitools/Display.h"
#include "clitools/Format.h"

namespace {

using namespace CliTools;
using namespace CliTools::MetaObj;
using namespace std::string_literals;
using Names = std::vector<std::string>;

const AutoCli::CommandSpec::Pairs kParameters = {{"header:Disk", "%Name%"},
                                                 {"fields:Disk", "Name, Size ,Tags,Is SSD"},
                                                 {"units:Disk.Size", "MB"}};

std::shared_ptr<MetaStruct> MakeDisk(const std::string& name = {}, std::int64_t size = 0,
                                     const Names& tags = {}) {
  auto disk = MetaStruct::New("Disk");
  disk->SetField("Is SSD", MetaBool::New(size > 100));
  disk->SetField("Name", name);
  disk->SetField("Size", MetaInt::New(size));
  auto list = MetaList::New(MetaType::kString);
  for (const std::string& tag : tags) list->Add(tag);
  disk->SetField("Tags", list);
  disk->SetField("Hidden", "not in fields:");
  return disk;
}

std::shared_ptr<MetaList> MakeDisks(const std::vector<std::shared_ptr<MetaStruct>>& disks) {
  auto list = MetaList::New(MetaType::kStruct, MakeDisk());
  for (const auto& disk : disks) list->Add(disk);
  return list;
}

/// Strings with characters that the formats have to escape.
const Names kHostile = {"a,\"b;c'`",
                        " blanks ",
                        "line\nfeed\r\n",
                        "back\\slash\\n\\x41",
                        "<x a=\"1\">&amp;]]>",
                        "",
                        "nul\0l"s,
                        "\ttab\x1b[2J\x01\x7f\u009b",
                        "\xff\xc3(\u202e\uFFFE😀"};

TEST(Format, ShowsPeopleRecords) {
  const auto disks = MakeDisks({MakeDisk("漢字", 5, {"a", "b"}), MakeDisk("disk1", 1000)});
  EXPECT_EQ(Format(*disks, "simple", kParameters),
            "漢字\n"
            "   Name: 漢字\n"
            "   Size: 5 MB\n"
            "   Tags: a, b\n"
            "   Is SSD: false\n"
            "\n"
            "disk1\n"
            "   Name: disk1\n"
            "   Size: 1000 MB\n"
            "   Tags: \n"
            "   Is SSD: true\n");
  EXPECT_EQ(Format(*disks, "table", kParameters),
            "Name      Size  Tags  Is SSD\n"
            "-----  -------  ----  ------\n"
            "漢字      5 MB  a, b  false\n"
            "disk1  1000 MB        true\n");
  EXPECT_EQ(Format(*MakeDisk("x\n   Is SSD: true\x1b\xff", -1), "simple",
                   {{"header:Disk", "Disk"}, {"fields:Disk", "Gone,Name,Size"}}),
            "Disk\n   Name: x\\n   Is SSD: true\\x1b\uFFFD\n   Size: -1\n");
  EXPECT_EQ(Format(*MakeDisk("e\u0301\n"), "table", {{"fields:Disk", "Size,Name,Gone"}},
                   {.header = false}),
            "   0  e\u0301\\n\n");
}

TEST(Format, ShowsEverythingThatIsNoRecord) {
  const auto texts = MetaList::New(MetaType::kString);
  texts->Add("a");
  texts->Add("b\n");
  const std::vector<std::tuple<std::shared_ptr<MetaObject>, std::string, std::string>> cases = {
      {MetaBool::New(true), "", "true\n"},
      {MetaBool::New(false), "table", "false\n"},  // as a failed command may return
      {MetaInt::New(INT64_MIN), "json", "-9223372036854775808\n"},
      {texts, "", "a\nb\n\n"},
      {texts, "simple", "a\nb\\n\n"},
      {texts, "json", "[\n  \"a\",\n  \"b\\n\"\n]\n"},
      // Longer than the blocks in which a vectorised search looks for characters to escape.
      {MetaString::New(std::string(40, 'x') + '\x1f'), "json",
       '"' + std::string(40, 'x') + "\\u001F\"\n"},
      {MakeDisks({}), "simple", ""},
      {MakeDisk("a"), "", "a\n   Name: a\n   Size: 0 MB\n   Tags: \n   Is SSD: false\n"},
      {MakeDisk(" a\0b"s, 0, {"\""}), "csv",
       "Name,Size,Tags,Is SSD\n\" a\uFFFDb\",0,\"\"\"\",false\n"},
      {MakeDisks({}), "table", "Name  Size  Tags  Is SSD\n----  ----  ----  ------\n"},
      {MetaList::New(MetaType::kStruct), "table", ""},
  };
  for (const auto& [root, formatter, expected] : cases) {
    EXPECT_EQ(Format(*root, formatter, kParameters), expected) << formatter;
  }
}

TEST(Format, ShowsRecordsOfUnequalFields) {
  const auto record = [](const Names& fields) {
    const auto made = MetaStruct::New("Odd");
    for (const std::string& field : fields) made->SetField(field, field + "!");
    return made;
  };
  const auto list = MetaList::New(MetaType::kStruct, record({"a"}));
  const auto shortest = record({"a", "c"});
  const auto names = shortest->GetFieldNames();
  for (const Names& fields : {Names{"a", "c", "d"}, {"a", "c", "d", "b"}, {"c", "a"}, {}}) {
    list->Add(record(fields));
  }
  list->Add(shortest);
  EXPECT_EQ(Format(*list, "csv", {{"fields:Odd", "a,b,c"}}),
            "a,b,c\na!,,c!\na!,b!,c!\na!,,c!\n,,\na!,,c!\n");
  EXPECT_EQ(names.data(), shortest->GetFieldNames().data()) << "moved by another record's field";
  EXPECT_EQ(Names(names.begin(), names.end()), (Names{"a", "c"}));
}

TEST(Format, FitsTablesToThePage) {
  const auto disks = MakeDisks({MakeDisk("one two three", 5, {"a", "b"}), MakeDisk(" 漢字 x", 6)});
  const auto table = [&](std::size_t width) {
    return Format(*disks, "table", {{"fields:Disk", "Name,Size,Tags"}}, {.width = width});
  };
  EXPECT_EQ(table(25), table(0));
  EXPECT_EQ(table(24),
            "Name          Size  Tags\n"
            "------------  ----  ----\n"
            "one two          5  a, b\n"
            "three\n"
            " 漢字 x          6\n");
  EXPECT_EQ(table(17),
            "Name   Size  Tags\n"
            "-----  ----  ----\n"
            "one       5  a, b\n"
            "two\n"
            "three\n"
            "漢字      6\n"
            "x\n");
  EXPECT_EQ(table(16), Format(*disks, "simple", {{"fields:Disk", "Name,Size,Tags"}}));
}

TEST(Format, DocumentsGiveBackEveryText) {
  const auto disks = MakeDisks(std::vector(1000, MakeDisk("", 0, kHostile)));
  for (const char* formatter : {"json", "csv", "simple"}) {
    std::size_t parts = 0;
    std::string document;
    const auto takePart = [&](std::string_view part) {
      document += part;
      ++parts;
    };
    Format(*disks, formatter, {{"fields:Disk", "Tags"}}, {}, takePart);
    EXPECT_TRUE(parts > 1 && parts < 100) << formatter << parts;
    EXPECT_EQ(document, ValidUtf8(document)) << formatter;
    if (formatter != "json"s) continue;
    Names expected;
    for (const std::string& text : kHostile) expected.push_back(ValidUtf8(text));
    const nlohmann::json records = nlohmann::json::parse(document);
    EXPECT_EQ(records.size(), 1000U);
    for (const auto& record : records) EXPECT_EQ(record.at("Tags").get<Names>(), expected);
  }
}

}  // namespace
