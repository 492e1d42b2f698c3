#include "Benchmarks/ObjectiveC/ObjectiveCTarget.h"

#include <objc/Object.h>
#include <objc/message.h>
#include <objc/runtime.h>

@interface ObjectiveCTarget : Object {
@public
    long count;
    double position;
}
- (void)hide;
- (void)seekTo:(double)newPosition;
- (void)follow:(ObjectiveCTarget*)other;
@end

@implementation ObjectiveCTarget
- (void)hide {
    ++count;
}
- (void)seekTo:(double)newPosition {
    position += newPosition;
}
- (void)follow:(ObjectiveCTarget*)other {
    count += other->count;
}
@end

void* objectiveCTarget(void) { return class_createInstance([ObjectiveCTarget class], 0); }

void sendHide(void* target, long count) {
    ObjectiveCTarget* receiver = target;
    for (long i = 0; i < count; ++i) {
        [receiver hide];
    }
}

void sendSeek(void* target, long count, double position) {
    ObjectiveCTarget* receiver = target;
    for (long i = 0; i < count; ++i) {
        [receiver seekTo:position];
    }
}

void sendFollow(void* target, long count, void* other) {
    ObjectiveCTarget* receiver = target;
    for (long i = 0; i < count; ++i) {
        [receiver follow:(ObjectiveCTarget*)other];
    }
}

void sendHideByName(void* target, long count, const char* name) {
    id receiver = target;
    for (long i = 0; i < count; ++i) {
        const SEL selector = sel_registerName(name);
        ((void (*)(id, SEL))objc_msg_lookup(receiver, selector))(receiver, selector);
    }
}
