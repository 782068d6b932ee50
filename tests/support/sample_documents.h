#pragma once

#include <string>

#include "support/core_test.h"

// Small documents with at least one record of each kind, in both forms.

inline const std::string kTables =
    Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=#ARMYTBLS", "VERSION=0", "NAME=Arsenal \xA7", "DESCR=d", "[WEAPONLIST]",
           "ENTRY=#EL", "SORTED=1", "INDEXED=1", "COUNT=1", "[WEAPONLIST_1]", "ENTRY=#W", "VERSION=2", "FULLINFO=1",
           "NAME=Laser", "DESCR=hot", "KEY=LASER", "CLASS=Rifle", "POINTS=10,10", "PROP2=0,0,0,0,0,0,0,0,0,0,0,0",
           "PROP3=1,1,0,0", "[ACCESSORYLIST]", "ENTRY=#EL", "SORTED=1", "INDEXED=1", "COUNT=1",
           // PF 2, with a price of its own
           "[ACCESSORYLIST_1]", "ENTRY=#I", "VERSION=2", "FULLINFO=1", "NAME=Plate", "DESCR=", "KEY=PLATE",
           "CLASS=Armour", "POINTS=10,12.5", "PROP1=2,0", "PROP2=0,0,0,0,0"});

inline const std::string kList =
    Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=#ARMYLIST", "VERSION=0", "NAME=List", "DESCR=d", "PICTURE=p.png",
           "[UNITLIST]", "ENTRY=#UL", "SORTED=1", "INDEXED=1", "COUNT=2",
           // Infantry with SS 5: 5 + 5, with a weapon of 2.5, two of them
           "[UNITLIST_1]", "ENTRY=#U", "VERSION=2", "FULLINFO=1", "NAME=Guard", "DESCR=", "KEY=GUARD", "TYPE=0",
           "CLASS=Infantry", "SUBCLASS=", "QUANTITY=2", "POINTS=20,25", "STATS=10,5,6,0,6", "PROP2=0,0,0,0",
           "PROP3=0,0,0,0,0,0", "[UNITLIST_1_EQLIST]", "ENTRY=#EL", "SORTED=0", "INDEXED=0", "COUNT=1",
           "[UNITLIST_1_EQLIST_1]", "ENTRY=#W", "VERSION=2", "FULLINFO=0", "NAME=Laser", "DESCR=hot", "KEY=LASER",
           "CLASS=Rifle", "POINTS=2.5,2.5",
           // three squads of these two
           "[UNITLIST_2]", "ENTRY=#MU", "VERSION=2", "FULLINFO=1", "NAME=Squad", "DESCR=", "KEY=SQUAD", "QUANTITY=3",
           "POINTS=60,75", "[UNITLIST_2_UNITLIST]", "ENTRY=#UL", "SORTED=0", "INDEXED=0", "COUNT=1",
           "[UNITLIST_2_UNITLIST_1]", "ENTRY=#U", "VERSION=2", "FULLINFO=0", "NAME=Guard", "DESCR=", "KEY=GUARD",
           "TYPE=0", "CLASS=Infantry", "SUBCLASS=", "QUANTITY=2", "POINTS=20,25"});

inline const std::string kRoster =
    Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=#ARMYROSTER", "VERSION=0", "NAME=X", "DESCR=", "PICTURE=", "[UNITLIST]",
           "ENTRY=#UL", "SORTED=0", "INDEXED=0", "COUNT=1",
           // the summary of the guard above
           "[UNITLIST_1]", "ENTRY=#U", "VERSION=2", "FULLINFO=0", "NAME=Guard", "DESCR=", "KEY=GUARD", "TYPE=0",
           "CLASS=Infantry", "SUBCLASS=", "QUANTITY=2", "POINTS=20,25"});

inline const std::string kTablesV1 =
    Lines({"\"#VD_VER\",1,0", "\"#ARMYTBLS\",1,0,0,\"Old\",\"d\"", "\"#ARMYWP\"", "\"#EL\",1",
           "\"#W\",0,2,\"\",0,\"Laser\",\"hot\",\"Rifle\"", "\"#P\",10,7.5", "\"#ARMYAC\"", "\"#EL\",1",
           "\"#I\",1,2,\"\",0,\"Plate\",\"\",\"Armour\",2,0,0,0,0,0,0", "\"#P\",10,12.5"});

// The guard of the list above without its quantity, and a squad of a summary that costs 8.
inline const std::string kListV1 = Lines(
    {"\"#VD_VER\",1,0", "\"#ARMYLIST\",1,0,0,\"Old\",\"d\",\"old.bmp\"", "\"#UL\",2",
     "\"#U\",1,2,\"\",0,\"Guard\",\"\",0,\"Infantry\",\"\",10,5,6,0,6,0,0,0,0,0,0,0,0,0", "\"#P\",1,1", "\"#EL\",1",
     "\"#W\",0,2,\"\",0,\"Laser\",\"hot\",\"Rifle\"", "\"#P\",10,2.5", "\"#MU\",1,2,\"\",0,\"Squad\",\"\",1,1,1",
     "\"#U\",0,2,\"\",0,\"Guard\",\"\",0,\"Infantry\",\"\"", "\"#P\",4,8"});

inline const std::string kRosterV1 = Lines({"\"#VD_VER\",1,0", "\"#ARMYROSTER\",1,0,0,\"Old\",\"d\",\"\"", "\"#UL\",1",
                                            "\"#U\",0,2,\"\",0,\"Guard\",\"\",0,\"Infantry\",\"\"", "\"#P\",4,8"});
