#pragma once

class CArmyList;
class CArmyTables;

/// Takes the elements of a second document into a working document: the objects themselves, not copies.
///
/// Where the document has an element of that key already, the player is asked, until he has decided for all that
/// follow; one decision holds for all lists of a document. A new element is filed under its name: where that isn't its
/// key, and is in use, the list refuses it. Cancel ends the merge, as does a run-time error, which is the caller's;
/// what was taken up to there stays.
namespace MMerge {

void Merge(CArmyTables& document, const CArmyTables& source);
void Merge(CArmyList& document, const CArmyList& source);

}  // namespace MMerge
