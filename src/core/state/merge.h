#pragma once

class CArmyList;
class CArmyTables;

/// Takes the elements of a second document into a working document: the objects themselves, not copies.
///
/// Where the document has an element of that key already, the player is asked, until he has decided for all that
/// follow; one decision holds for all lists of a document. Cancel ends the merge, and what was taken up to there stays.
/// A run-time error is the caller's; the document then holds all that it held, and what was taken.
namespace MMerge {

void Merge(CArmyTables& document, const CArmyTables& source);
void Merge(CArmyList& document, const CArmyList& source);

}  // namespace MMerge
