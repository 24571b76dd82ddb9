// The entry from host code into code whose raises walk the frame chain.
#ifndef COMMON_OBJECTMODEL_FRAMECHAINENTRY_H
#define COMMON_OBJECTMODEL_FRAMECHAINENTRY_H

extern "C" {
// Calls `function` with a frame chain that ends in it: the exception raiser
// walks frames up to a null link and so never scans the machine code of the
// host's frames above. A raise that no frame below handles reaches the
// unhandled hook.
void CallAtFrameChainEnd(void (*function)());
}

#endif
