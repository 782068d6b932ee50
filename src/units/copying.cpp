#include "units/copying.h"

#include "core/files/runtime_error.h"

int CCopying::depth_ = 0;
int CCopying::members_ = 0;
int CCopying::items_ = 0;

CCopying::CCopying() {
    if (depth_ >= kDeepest) throw CRuntimeError(ErrorNumber::OutOfStackSpace);
    if (depth_++ == 0) members_ = items_ = 0;
}

CCopying::~CCopying() {
    --depth_;
}

void CCopying::CountMember() {
    if (++members_ > kMostMembers) throw CRuntimeError(ErrorNumber::OutOfMemory);
}

void CCopying::CountItem() {
    if (++items_ > kMostItems) throw CRuntimeError(ErrorNumber::OutOfMemory);
}
