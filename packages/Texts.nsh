!macro TEXT name english japanese
    LangString ${name} ${LANG_ENGLISH} "${english}"
    LangString ${name} ${LANG_JAPANESE} "${japanese}"
!macroend

!insertmacro TEXT Title "${TITLE_ENGLISH}" "${TITLE_JAPANESE}"
!insertmacro TEXT FullTitle "${TITLE_ENGLISH}${SUFFIX_ENGLISH}" "${TITLE_JAPANESE}${SUFFIX_JAPANESE}"
!insertmacro TEXT InUse \
    "Quickfire Button Settings or its help is open.$\n$\nPlease close it, and choose Retry." \
    "クイックファイアボタンの設定またはヘルプが開いています。$\n$\n閉じてから「再試行」を押してください。"
!insertmacro TEXT WindowsTooOld \
    "Windows 10, version 1703 or later, is needed." \
    "Windows 10 バージョン 1703 以降が必要です。"
!insertmacro TEXT DemoName \
    "Demo settings" \
    "デモ設定"
!insertmacro TEXT DemoDescription \
    "To try the program without the keyboard. Settings that this computer has already stay as they are." \
    "キーボードがなくてもプログラムを試せます。すでにある設定は変更しません。"
!insertmacro TEXT LauncherTitle "Quickfire Buttons${SUFFIX_ENGLISH}" "クイックファイアボタン${SUFFIX_JAPANESE}"
!insertmacro TEXT LauncherName \
    "Launcher" \
    "ランチャー"
!insertmacro TEXT LauncherDescription \
    "Lets any keyboard press the buttons. Not needed where the keyboard's own launcher runs." \
    "どのキーボードでもボタンを使えるようにします。キーボード付属のランチャーがある場合は不要です。"
!insertmacro TEXT LogonName \
    "Start the launcher with Windows" \
    "ランチャーを Windows と同時に開始"
!insertmacro TEXT LogonDescription \
    "The launcher starts when you sign in. Its menu changes that later." \
    "サインインするとランチャーが開始します。後でランチャーのメニューから変更できます。"
!insertmacro TEXT Finished \
    "You find it in the Start menu. It opens only with the keyboard, after the launcher's first start, or with the demo settings." \
    "スタートメニューから開始できます。キーボードがある場合、ランチャーを一度開始した後、またはデモ設定がある場合にのみ開きます。"
!insertmacro TEXT RemoveSettings \
    "Remove the button settings of the user $\"$8$\", too?$\n$\nThose of other users stay." \
    "ユーザー「$8」のボタン設定も削除しますか？$\n$\nほかのユーザーの設定は残ります。"
!insertmacro TEXT PathName \
    "qlb on the path" \
    "qlb をパスに追加"
!insertmacro TEXT PathDescription \
    "The command line program qlb can be started from any folder: to carry, back up and bring back the settings." \
    "コマンドラインプログラム qlb をどのフォルダーからでも実行できます。設定の持ち出し、バックアップ、復元ができます。"
