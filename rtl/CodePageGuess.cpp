#include "rtl/CodePageGuess.h"

#include "rtl/CodePage.h"

#include <algorithm>
#include <string>

namespace {

// The most common characters of each language, enough to tell running text
// from the random characters another code page's bytes decode to.
const char* const CommonHanzi =
    // Simplified
    "的一是不了在人有我他这个们中来上大为和国地到以说时要就出会可也你对生能而子那得于着下自之年过发后作里用道行所然家种事成方多经么去法学如都同现当没动面起看定天分还进好小部其些主样理心她本前开但因只从想实日军者意无力它与长把机十民第公此已工使情明性知全三又关点正业外将两高间由问很最重并物手应战向头文体政美相见被利什二等产或新己制身果加西斯月话合回特代内信表化老给世位次度门任常先海通教儿原东声提立及比员解水名真论处走义各入几口认条平系气题活尔更别打女变四神总何电数安少报才结反受目太量再感建务做接必场件计管期市直德资命山金指克许统区保至队形社便空决治展马科司五基眼书非则听白却界达光放强即像难且权思王象完设式色路记南品住告类求据程北边死张该交规万取拉格望觉术领共确传师观清今切院让识候带导争运笑飞风步改收根干造言联持组每济车亲极林服快办议往元英士证近失转夫令准布始怎呢存未远叫台单影具罗字爱击流备兵连调深商算质团集百需价花党华城石级整府离况亚请技际约示复病息究线似官火断精满支视消越器容照须九增研写称企八功吗包片史委乎查轻易早曾除农找装广显吧阿李标谈吃图念六引历首医局突专费号尽另周较注语仅考落青随选列武红响虽推势参希古众构房半节土投某案黑维革划敌致陈律足态护七兴派孩验责营星够章音跟志底站严巴例防族供效续施留讲型料终答紧黄绝奇察母京段依批群项故按河米围江织害斗双境客纪采举杀攻父苏密低朝友诉止细愿千值仍男钱破网热助倒育属坐帝限船脸职速刻乐否刚威毛状率甚独球般普怕弹校苦创假久错承印晚兰试股拿脑预谁益阳若哪微尼继送急血惊伤素药适波夜省初喜卫源食险待述陆习置居劳财环排福纳欢雷警获模充负云停木游龙树疑层冷洲冲射略范竟句室异激汉村哈策演简卡罪判担州静退既衣您宗积余痛检差富灵协角占配征修皮挥胜降阶审沉坚善妈刘读啊超免压银买皇养伊怀执副乱抗犯追帮宣佛岁航优怪香著田铁控税左右份穿艺背阵草脚概恶块顿敢守酒岛托央户烈洋哥索胡款靠评版宝座释景顾弟登货互付伯慢欧换闻危忙核暗姐介坏讨丽良序升监临亮露永呼味野架域沙掉括舰鱼杂误湾吉减编楚肯测败屋跑梦散温困剑渐封救贵枪缺楼县尚毫移娘朋画班智亦耳恩短掌恐遗固席松秘谢鲁遇康虑幸均销钟诗藏赶剧票损忽巨炮旧端探湖录叶春乡附吸予礼港雨呀板庭妇归睛饭额含顺输摇招婚脱补谓督毒油疗旅泽材灭逐莫笔亡鲜词圣择寻厂睡博勒烟授诺伦岸奥唐卖俄炸载洛健堂旁宫喝借君禁阴园谋宋避抓荣姑孙逃牙束跳顶玉镇雪午练迫爷篇肉嘴馆遍凡础洞卷坦牛宁纸诸训私庄祖丝翻暴森塔默握戏隐熟骨访弱蒙歌店鬼软典欲萨伙遭盘爸扩盖弄雄稳忘亿刺拥徒姆杨齐赛趣曲刀床迎冰虚玩析窗醒妻透购替塞努休虎扬途侵刑绿兄迅套贸毕唯谷轮库迹尤竞街促延震弃甲伟麻川申缓潜闪售灯针哲络抵朱埃抱鼓植纯夏忍页杰筑折郑贝尊吴秀混臣雅振染盛怒舞圆搞狂措姓残秋培迷诚宽宇猛摆梅毁伸摩盟末乃悲拍丁赵硬麦蒋操耶阻订彩抽赞魔纷沿喊违妹浪汇币丰蓝殊献桌啦瓦莱援译夺汽烧距裁偏符勇触课敬哭懂墙袭召罚侠厅拜巧侧韩冒债曼融惯享戴童犹乘挂奖绍厚纵障讯涉彻刊丈爆乌役描洗玛患妙镜唱烦签仙彼弗症仿倾牌陷鸟轰咱菜闭奋庆撤泪茶疾缘播朗杜奶季丹狗尾仪偷奔珠虫驻孔宜艾桥淡翼恨繁寒伴叹旦愈潮粮缩罢聚径恰挑袋灰捕徐珍幕映裂泰隔启尖忠累炎暂估泛荒偿横拒瑞忆孤鼻闹羊呆厉衡胞零穷舍码赫婆魂灾洪腿胆津俗辩胸晓劲贫仁偶辑邦恢赖圈摸仰润堆碰艇稍迟辆废净凶署壁御奉旋冬矿抬蛋晨伏吹鸡倍糊秦盾杯租骑乏隆诊奴摄丧污渡旗甘耐凭扎抢绪粗肩梁幻菲皆碎宙叔岩荡综爬荷悉蒂返井壮薄悄扫敏碍殖详迪矛霍允幅撒剩凯颗骂赏液番箱贴漫酸郎腰舒眉忧浮辛恋餐吓挺励辞艘键伍峰尺昨黎辈贯侦滑券崇扰宪绕趋慈乔阅汗枝拖墨胁插箭腊粉泥氏彭拔骗凤慧媒佩愤扑龄驱惜豪掩兼跃尸肃帕驶堡届欣惠册储飘桑闲惨洁踪勃宾频仇磨递邪撞拟滚奏巡颜剂绩贡疯坡瞧截燃焦殿伪柳锁逼颇昏劝呈搜勤戒驾漂饮曹朵仔柔俩孟腐幼践籍牧凉牲佳娜浓芳稿竹腹跌逻垂遵脉貌柏狱猜怜惑陶兽帐饰贷昌叙躺钢沟寄扶铺邓寿惧询汤盗肥尝匆辉奈扣廷澳嘛董迁凝慰厌脏腾幽怨鞋丢埋泉涌辖躲晋紫艰魏吾慌祝邮吐狠鉴曰械咬邻赤挤弯椅陪割揭韦悟聪雾锋梯猫祥阔誉筹丛牵鸣沈阁穆屈旨袖猎臂蛇贺柱抛鼠瑟戈牢逊迈欺吨琴衰瓶恼燕仲诱狼池疼卢仗冠粒遥吕玄尘冯抚浅敦纠钻晶岂峡苍喷耗凌敲菌赔涂粹扁亏寂煤熊恭湿循暖糖赋抑秩帽哀宿踏烂袁侯抖夹昆肝擦猪炼恒慎搬纽纹玻渔磁铜齿跨押怖漠疲叛遣兹祭醉拳弥斜档稀捷肤疫肿豆削岗晃吞宏癌肚隶履涨耀扭坛拨沃绘伐堪仆郭牺歼墓雇廉契拼惩捉覆刷劫嫌瓜歇雕闷乳串娃缴唤赢莲霸桃妥瘦搭赴岳嘉舱俊址庞耕锐缝悔邀玲惟斥宅添挖呵讼氧浩羽斤酷掠妖祸侍乙妨贪挣汪尿莉悬唇翰仓轨枚盐览傅帅庙芬屏寺胖璃愚滴疏萧姿颤丑劣柯寸扔盯辱匹俱辨饿蜂哦腔郁溃谨糟葛苗肠忌溜鸿爵鹏鹰笼丘桂滋聊挡纲肌茨壳痕碗穴膀卓贤卧膜毅锦欠哩函茫昂薛皱夸豫胃舌剥傲拾窝睁携陵哼棉晴铃填饲渴吻扮逆脆喘罩卜炉柴愉绳胎蓄眠竭喂傻慕浑奸扇柜悦拦诞饱乾泡贼亭夕爹酬儒姻卵氛泄杆挨僧蜜吟猩遂狭肖甜霞驳裕顽於摘矮秒卿畜咽披辅勾盆疆赌塑畏吵囊嗯泊肺骤缠冈羞瞪吊贾漏斑涛悠鹿俘锡卑葬铭滩嫁催璇翅盒蛮矣潘歧赐鲍锅廊拆灌勉盲宰佐啥胀扯禧辽抹筒棋裤唉朴咐孕誓喉妄拘链驰栏逝窃艳臭纤玑棵趁匠盈翁愁瞬婴孝颈倘浙谅蔽畅赠妮莎尉冻跪闯葡後厨鸭颠遮谊圳"
    // Traditional
    "這個們來為國說時會對過發後裡動還進當經與種長開問關點間麼實將從無現電機話見議該義樣學體變產業應數東員總聲報結師運區號設條務場兩處類據據離邊認覺讓並書聽萬傳術內絕據檢際規視觀親計議轉語標質團歡愛飛風車軍戰鬥隊師農藝論證讀寫買賣錢銀錯題聯導龍鳥魚馬門開關頁顯頭圖畫書畫網絡檔案選擇設定確認取消關閉儲存載入檢視說明視窗編輯複製貼上刪除搜尋尋找取代印表預覽屬性選項資料庫連線伺服器帳號密碼錯誤訊息警告資訊"
    // Symbols a form's captions hold
    "，。、：；？！（）「」『』《》【】…—～";

const char* const CommonHangul =
    "이다는의에고하지가로을를서한기리사자도나인어수대시그아정요있게일보들면해제것우만주없소부라여저위상오구과장전내성니회마거비미등원적조국생관무방동경모문중신화연발할합선실개용터된공반세물까간계속히당결또작려명되진체분말러알통입업음영임단금"
    "파일저장열기닫기취소확인설정편집복사붙여넣기삭제검색찾기바꾸기인쇄미리보기속성옵션데이터베이스연결서버계정암호오류메시지경고정보창도움말";

bool IsAsciiLetter(char32_t c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::u32string Decoded(const char* utf8)
{
    std::u32string out;
    const char* end = utf8 + std::char_traits<char>::length(utf8);
    for (const char* p = utf8; p < end;)
        out.push_back(NextUtf8(p, end));
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
    return out;
}

bool IsIn(const std::u32string& sorted, char32_t c)
{
    return std::binary_search(sorted.begin(), sorted.end(), c);
}

const std::u32string& HanziSet()
{
    static const std::u32string set = Decoded(CommonHanzi);
    return set;
}

const std::u32string& HangulSet()
{
    static const std::u32string set = Decoded(CommonHangul);
    return set;
}

// The accented letters of the languages each Latin code page serves.
const std::u32string& AccentSet(int codePage)
{
    static const std::u32string western = Decoded("àâäçèéêëîïôöùûüÿñáíóúãõåæøßœÀÂÄÇÈÉÊËÎÏÔÖÙÛÜÑÁÍÓÚÃÕÅÆØŒ");
    static const std::u32string central =
        Decoded("ąćęłńóśźżĄĆĘŁŃÓŚŹŻáäčďéěíňôřšťúůýžÁÄČĎÉĚÍŇÔŘŠŤÚŮÝŽőűŐŰăâîşţĂÂÎŞŢĺľŕĹĽŔüößÜÖ");
    return codePage == 1250 ? central : western;
}

enum class TScript { Latin, Cyrillic, Greek, Cjk };

TScript ScriptOf(int codePage)
{
    switch (codePage) {
    case 1251:
        return TScript::Cyrillic;
    case 1253:
        return TScript::Greek;
    case 1252:
    case 1250:
        return TScript::Latin;
    default:
        return TScript::Cjk;
    }
}

bool IsCyrillic(char32_t c) { return c >= 0x400 && c <= 0x4FF; }
bool IsCyrillicUpper(char32_t c) { return (c >= 0x400 && c <= 0x42F) || (c >= 0x460 && c <= 0x4FF && c % 2 == 0); }
bool IsGreek(char32_t c) { return c >= 0x386 && c <= 0x3CE; }
bool IsGreekUpper(char32_t c) { return c >= 0x386 && c <= 0x3AB; }
bool IsLatinLetter(char32_t c) { return c >= 0xC0 && c <= 0x24F && c != 0xD7 && c != 0xF7; }
bool IsBroken(char32_t c) { return c == 0xFFFD || (c >= 0x80 && c <= 0x9F) || (c >= 0xE000 && c <= 0xF8FF); }

// Letters of an alphabet: common ones score, letters glued to ASCII letters
// and capitals after small letters (what the wrong code page makes of
// another alphabet) count against.
int AlphabetScore(const std::u32string& text, size_t i, bool (*isLetter)(char32_t), bool (*isUpper)(char32_t))
{
    const char32_t c = text[i];
    const char32_t prev = i > 0 ? text[i - 1] : U' ';
    const char32_t next = i + 1 < text.size() ? text[i + 1] : U' ';
    if (!isLetter(c))
        return 0;
    int score = isUpper(c) ? 1 : 2;
    if (IsAsciiLetter(prev) || IsAsciiLetter(next))
        score -= 3;
    if (isUpper(c) && isLetter(prev) && !isUpper(prev))
        score -= 3;
    return score;
}

int LatinScore(const std::u32string& text, size_t i, const std::u32string& common)
{
    const char32_t c = text[i];
    if (!IsLatinLetter(c))
        return 0;
    int score = IsIn(common, c) ? 2 : 1;
    // Accented letters stand among plain ones; three in a row are another
    // alphabet read with the wrong code page.
    const bool prevHigh = i > 0 && IsLatinLetter(text[i - 1]);
    const bool nextHigh = i + 1 < text.size() && IsLatinLetter(text[i + 1]);
    if (prevHigh && nextHigh)
        score -= 3;
    return score;
}

int CjkScore(char32_t c, int codePage)
{
    if (c >= 0xAC00 && c <= 0xD7A3)
        return IsIn(HangulSet(), c) ? 4 : 1;
    if (c >= 0x3040 && c <= 0x30FF)
        return codePage == 932 ? 4 : 1;
    if (c >= 0xFF61 && c <= 0xFF9F)  // half-width katakana: single bytes of 932
        return -1;
    if (c >= 0x4E00 && c <= 0x9FFF)
        return IsIn(HanziSet(), c) ? 4 : 0;
    if (IsIn(HanziSet(), c) || (c >= 0xFF01 && c <= 0xFF5E))
        return 1;
    return 0;
}

long Score(const std::u32string& text, int codePage)
{
    const TScript script = ScriptOf(codePage);
    long score = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        if (c < 0x80)
            continue;
        if (IsBroken(c)) {
            score -= 10;
            continue;
        }
        switch (script) {
        case TScript::Latin:
            score += LatinScore(text, i, AccentSet(codePage));
            break;
        case TScript::Cyrillic:
            score += AlphabetScore(text, i, IsCyrillic, IsCyrillicUpper);
            break;
        case TScript::Greek:
            score += AlphabetScore(text, i, IsGreek, IsGreekUpper);
            // The final sigma ends words; inside one it is another
            // alphabet's letter (Cyrillic's frequent "т").
            if (c == U'\u03C2' && i + 1 < text.size() && IsGreek(text[i + 1]))
                score -= 4;
            break;
        case TScript::Cjk:
            score += CjkScore(c, codePage);
            break;
        }
    }
    return score;
}

} // namespace

TCodePageGuess GuessCodePage(const std::vector<std::string_view>& samples)
{
    // One buffer, the samples apart by line breaks: no double-byte
    // character spans two of them.
    std::string bytes;
    TCodePageGuess guess;
    for (std::string_view s : samples) {
        for (char c : s)
            guess.Bytes += static_cast<unsigned char>(c) >= 0x80;
        bytes.append(s);
        bytes.push_back('\n');
    }
    if (guess.Bytes == 0)
        return guess;
    long best = 0;
    bool first = true;
    for (int codePage : GuessedCodePages) {
        const long score = Score(CodePageToUtf32(bytes, codePage), codePage);
        if (first || score > best) {
            best = score;
            guess.CodePage = codePage;
            first = false;
        }
    }
    return guess;
}
