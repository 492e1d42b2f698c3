#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// The one object that the functions below send messages to, each `count` times.
void* objectiveCTarget(void);

void sendHide(void* target, long count);
void sendSeek(void* target, long count, double position);
void sendFollow(void* target, long count, void* other);

/// Looks the selector up each time.
void sendHideByName(void* target, long count, const char* name);

#ifdef __cplusplus
}
#endif
