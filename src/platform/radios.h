// Bluetooth: how many radios the machine has, and what they know.
#pragma once

struct RadioCounts {
    unsigned radios = 0;
    unsigned devices = 0;  // remembered or connected
    unsigned services = 0; // that are set up for these devices
};

// The radios are asked for what they know; nothing is sent.
RadioCounts CountRadios();
unsigned CountRadiosOnly();
