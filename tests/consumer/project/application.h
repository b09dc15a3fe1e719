/* SPDX-License-Identifier: Apache-2.0 */
#ifndef CONSUMER_APPLICATION_H
#define CONSUMER_APPLICATION_H

#ifdef __cplusplus
extern "C" {
#endif

/** Starts Qt. Call once, first. */
void application_start(int* argc, char** argv);
/** Runs the event loop for a while. */
void application_run(int milliseconds);
/** Number of visible top-level windows. */
int application_windows(void);
/** Ends Qt. */
void application_end(void);

#ifdef __cplusplus
}
#endif

#endif
