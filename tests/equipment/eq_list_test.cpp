#include "equipment/eq_list.h"

#include <algorithm>
#include <random>

#include "equipment/army_tables.h"
#include "support/core_test.h"

namespace {

std::shared_ptr<CEqItem> NewItem(const std::string& name, const std::string& key = {}) {
    auto item = std::make_shared<CEqItem>();
    item->NewItem(CEqItem::Weapon);
    item->SetName(name);
    item->SetKey(key);
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
    EXPECT_EQ(Names(list), "A b c ");
    std::string key;
    EXPECT_EQ(list.Add(NewItem("Laser"), key), 4);
    EXPECT_EQ(key, "LASER");
    EXPECT_EQ(list.Item("laser").Key(), "LASER");
    EXPECT_EQ(list.Add(NewItem("laser")), 0);
    std::string own = "own";
    EXPECT_EQ(list.Add(NewItem("zz"), own), 5);
    EXPECT_EQ(list.Item("OWN").Key(), "own");
    EXPECT_EQ(list.Add(NewItem("")) + list.Add(NewItem("")), 6 + 7);  // no name, no key
    EXPECT_EQ(list.GetIndex("LASER"), 6);
    EXPECT_EQ(list.GetIndex("laser"), 0);
    EXPECT_EQ(list.Add(std::make_shared<CEqItem>()), 0);
    EXPECT_EQ(Names(list), "  A b c Laser zz ");

    SList equal(true, false, {"beta", "Alpha", "alpha", "ALPHA", "BETA"});
    EXPECT_EQ(Names(equal), "Alpha alpha ALPHA beta BETA ");
}

// A model of the rule: in front of the first element that compares greater.
TEST(KeyedList, SortedInsertionWalksWhateverTheOrderIs) {
    std::mt19937 random(7);
    SList list(true, false);
    std::vector<std::string> model;
    for (int step = 0; step < 2000; ++step) {
        const std::string name(1, static_cast<char>('a' + random() % 26));
        switch (random() % 12) {
            case 0:
                if (!model.empty()) {  // renamed behind the list's back
                    const std::size_t at = random() % model.size();
                    list.Item(static_cast<std::int32_t>(at + 1)).SetName(name);
                    model[at] = name;
                }
                break;
            case 1:
                list.Clear();  // in order again
                model.clear();
                break;
            case 2:
                list.SetSorted(!list.Sorted());
                break;
            default:
                list.Add(NewItem(name));
                model.insert(list.Sorted() ? std::find_if(model.begin(), model.end(), [&](auto& m) { return m > name; })
                                           : model.end(),
                             name);
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
    EXPECT_EQ(Names(list), "a c b ");
    EXPECT_EQ(list.ShiftObjDown("A"), 2);
    for (const std::int32_t nowhere : {1, 0, -1, 4})
        EXPECT_EQ(list.ShiftObjUp(nowhere) + list.ShiftObjDown(4 - nowhere), 0);
    EXPECT_EQ(list.ShiftObjUp("a") + list.ShiftObjDown("x"), 0);
    EXPECT_EQ(Names(list), "c a b ");
    EXPECT_EQ(list.Item("C").Name(), "c");

    SList plain(false, false);
    for (const char* name : {"first", "second", "third"})
        plain.Add(NewItem(name, "SAME"));
    EXPECT_FALSE(plain.Exists("SAME"));
    EXPECT_EQ(plain.ShiftObjUp(3), 2);  // goes in under its key
    EXPECT_EQ(plain.ShiftObjUp(3), 0);  // the key is taken now, and the element lost
    EXPECT_EQ(Names(plain), "first third ");
}

TEST(KeyedList, UpdateFilesAnewAndCanLose) {
    SList list(true, true, {"a", "b", "c"});
    auto renamed = NewItem("d");
    list.Add(renamed);
    renamed->SetName("Aa");
    list.Update(renamed, "");
    EXPECT_EQ(Names(list), "a Aa b c ");
    EXPECT_FALSE(list.Exists("D"));
    EXPECT_EQ(list.Item("aa").Key(), "AA");
    renamed->SetName("c");
    list.Update(renamed, "aA");
    EXPECT_EQ(Names(list), "a b c ");
    EXPECT_EQ(ErrorOf([&] { list.Update(renamed, "aa"); }), 5);
}

TEST(KeyedList, UnknownEntriesAreErrors) {
    SList list(true, true, {"a"});
    EXPECT_EQ(ErrorOf([&] { list.Item("b"); }), 5);
    EXPECT_EQ(ErrorOf([&] { list.Remove("b"); }), 5);
    EXPECT_EQ(ErrorOf([&] { list.Item(0); }), 9);
    EXPECT_EQ(ErrorOf([&] { list.Remove(2); }), 9);
    list.Clear();
    EXPECT_TRUE(list.Sorted() && list.Indexed() && list.Count() == 0);
}

TEST(EquipmentDocument, AllowsWhatItHoldsByName) {
    CArmyTables tables;
    tables.ArmyWeapons().Add(NewItem("Laser"));
    CAccessory accessory;
    accessory.SetName("Laser");
    EXPECT_TRUE(tables.IsEqAllowed(*NewItem("lAser")));
    EXPECT_FALSE(tables.IsEqAllowed(accessory) || tables.IsEqAllowed(CEqItem()));
}

}  // namespace
