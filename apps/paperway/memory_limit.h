#pragma once

namespace paperway::command {

/// Keeps the process to the memory that the machine can spare when it starts. What does not fit
/// then fails where it is asked for, and is told; without a limit the system grants it, and ends
/// the process without a word while it is filled.
void limitMemory();
/// Takes that limit back, for a part that asks for more than it fills.
void liftMemoryLimit();

}  // namespace paperway::command
