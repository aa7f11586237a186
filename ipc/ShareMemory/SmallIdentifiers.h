#ifndef IPC_SHAREMEMORY_SMALLIDENTIFIERS_H
#define IPC_SHAREMEMORY_SMALLIDENTIFIERS_H

/// Makes sure that no segment made from now on gets an identifier that is also a ShareMemID, 0 to 7.
///
/// An application that ends removes the segments whose identifiers these are
/// (ShareMemory::DestroyShareMemory). As a rule there are none; but in a fresh boot or container the kernel
/// gives the first segments just these numbers, and then the segments of the contract are removed under all
/// other applications. The kernel does not soon give a number again, so the small ones are used up here by
/// private segments, which are removed again.
///
/// False, with an error in the log, if that is not possible.
bool UseUpSmallIdentifiers();

#endif
