# Phonetic keys typed into another program come out as Tamil, each key handled once.
start_target
start_quilom --start-typing
[ "$(quilom_state typing)" = on ] || fail "typing did not start"
click_target
xdotool type --delay 30 'vaNakkam thamizh '
expect_text 'வணக்கம் தமிழ் '
expect_no_latin_characters
screenshot target_with_tamil
