#include "equipment/eq_list.h"

#include <algorithm>
#include <cctype>
#include <random>

#include "support/core_test.h"

namespace {

std::shared_ptr<CEqItem> NewItem(const std::string& name) {
    auto item = std::make_shared<CEqItem>();
    item->NewItem(CEqItem::Weapon);
    item->SetName(name);
    return item;
}

struct SList : CEqList {
    SList(bool sorted, bool indexed, std::initializer_list<const char*> names = {}) {
        SetSorted(sorted);
        SetIndexed(indexed);
        for (const char* name : names)
            Add(NewItem(name));
    }
};

std::string Names(const CEqList& list) {
    std::string names;
    for (const CEqItem& item : list)
        names += item.Name() + " ";
    return names;
}

TEST(KeyedList, AddFilesByNameAndGivesKeys) {
    SList list(true, true, {"b", "A", "c"});
    std::string key;
    EXPECT_EQ(list.Add(NewItem("Laser"), key), 4);
    EXPECT_EQ(list.Item("laser").Key() + key, "LASERLASER");
    EXPECT_EQ(list.Add(NewItem("laser")), 0);
    key = "own";
    EXPECT_EQ(list.Add(NewItem("zz"), key), 5);
    EXPECT_EQ(list.Item("OWN").Key(), "own");
    EXPECT_EQ(list.Add(NewItem("")) + list.Add(NewItem("")), 6 + 7);  // no name, no key
    EXPECT_EQ(list.GetIndex("LASER") + list.GetIndex("laser"), 6 + 0);
    EXPECT_EQ(Names(list), "  A b c Laser zz ");
}

// A model of the rule: in front of the first element that compares greater.
TEST(KeyedList, SortedInsertionWalksWhateverTheOrderIs) {
    std::mt19937 random(7);
    SList list(true, false);
    std::vector<std::string> model;
    for (int step = 0; step < 2000; ++step) {
        const std::string name(1, static_cast<char>((random() % 2 == 0 ? 'a' : 'A') + random() % 26));
        const auto greater = [&](const std::string& m) { return std::toupper(m[0]) > std::toupper(name[0]); };
        const auto action = random() % 12;
        if (action == 0 && !model.empty()) {
            const std::size_t at = random() % model.size();
            CEqItem& held = *list.Share(static_cast<std::int32_t>(at) + 1);
            held.AsWeapon()->SetName(name);  // behind the list's back
            if (step % 2 == 0) held.Clone(*NewItem(name));
            model[at] = name;
        } else if (action == 1) {
            list.Clear();  // in order again
            model.clear();
        } else if (action == 2) {
            list.SetSorted(!list.Sorted());
        } else {
            list.Add(NewItem(name));
            model.insert(list.Sorted() ? std::ranges::find_if(model, greater) : model.end(), name);
        }
        std::string expected;
        for (const std::string& m : model)
            expected += m + " ";
        ASSERT_EQ(Names(list), expected) << step;
    }
}

TEST(KeyedList, ShiftsMoveByPositionOrExactKey) {
    SList list(false, true, {"a", "b", "c"});
    EXPECT_EQ(list.ShiftObjUp(3), 2);
    EXPECT_EQ(list.ShiftObjDown("A"), 2);
    for (const std::int32_t nowhere : {1, 0, -1, 4})
        EXPECT_EQ(list.ShiftObjUp(nowhere) + list.ShiftObjDown(4 - nowhere), 0);
    EXPECT_EQ(Names(list) + list.Item("C").Name(), "c a b c");

    SList plain(false, false);
    for (const char* name : {"first", "second", "third"}) {
        plain.Add(NewItem(name));
        plain.Item(plain.Count()).SetKey("SAME");
    }
    EXPECT_EQ(plain.MoveUp(3), 2);
    EXPECT_EQ(plain.MoveUp(3), 2);
    EXPECT_EQ(plain.MoveDown(2), 3);
    EXPECT_EQ(plain.MoveDown(3), 0);
    EXPECT_EQ(Names(plain) + plain.Item(2).Key(), "first third second SAME");
    EXPECT_EQ(plain.ShiftObjUp(3), 2);  // goes in under its key
    EXPECT_EQ(plain.ShiftObjUp(3), 0);  // the key is taken now, and the element lost
    EXPECT_EQ(Names(plain), "first second ");

    SList sorted(true, false);
    EXPECT_EQ(sorted.Add(std::make_shared<CEqItem>()), 1) << "an empty wrapper, compared with none";
    EXPECT_EQ(sorted.Add(NewItem("a")) + sorted.ShiftObjUp("A") + sorted.ShiftObjDown("A"), 0) << "error 91 is trapped";
    plain.Add(std::make_shared<CEqItem>());
    EXPECT_EQ(plain.MoveUp(3), 2) << "a row moves whatever it holds";
}

TEST(KeyedList, UpdateFilesAnewAndCanLose) {
    SList list(true, true, {"a", "b", "c"});
    auto renamed = NewItem("d");
    list.Add(renamed);
    renamed->SetName("Aa");
    list.Update(renamed, "");
    EXPECT_EQ(Names(list), "a Aa b c ");
    EXPECT_FALSE(list.Exists("D"));
    renamed->SetName("c");
    list.Update(renamed, "aA");
    EXPECT_EQ(Names(list), "a b c ");
    EXPECT_EQ(ErrorOf([&] { list.Update(renamed, "aa"); }), 5);
}

}  // namespace
