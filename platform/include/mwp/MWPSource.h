#ifndef MWP_MWPSOURCE_H
#define MWP_MWPSOURCE_H

/// The audio source manager, which arbitrates who is heard. The calls answer 0.
class MWPSource {
 public:
  enum AudioGainType : int {
    AUDIO_GAIN = 0,            ///< for long; others stop
    AUDIO_GAIN_TRANSIENT = 1,  ///< for a moment; others pause
    AUDIO_GAIN_DUCK = 2,       ///< for a moment; others go on more quietly
  };

  /// Asks for the audio focus on behalf of a source.
  static int Request(int source, AudioGainType gain);
  /// Confirms to the manager that a source has become active.
  static int ActiveSourceConfirm(int source, int confirmation);
  /// Confirms to the manager that a source has become inactive.
  static int DeactiveSourceConfirm(int source, int confirmation);
};

#endif
